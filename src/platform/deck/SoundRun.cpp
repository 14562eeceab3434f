// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/deck/SoundRun.h"

#include <algorithm>
#include <cmath>

namespace korvel::platform {
namespace {

constexpr std::size_t kSamplesOfFrame = DecodedSound::kChannels;
/// The stretcher's window and what it is fed at a time, generously.
constexpr std::int64_t kReadAhead = 8192;

}  // namespace

void SoundRun::begin(double frame, const Way& way) {
  m_way = way;
  m_next = std::llround(frame);
  if (isAsRecorded()) return;
  if (!m_stretcher) m_stretcher = std::make_unique<Stretcher>();
  m_stretcher->begin(way.rate, way.pitch);
  // What is before it leads in, so that the way sounds as if it had come from there.
  m_next -= static_cast<std::int64_t>(m_stretcher->lead());
}

std::int64_t SoundRun::readUntil(double frame, const Way& way, std::size_t frames) {
  const auto asked = static_cast<std::int64_t>(std::ceil(static_cast<double>(frames) * way.rate));
  return std::llround(frame) + asked + (way == Way() ? 0 : kReadAhead);
}

std::int64_t SoundRun::readUntil(std::size_t frames) const {
  return readUntil(static_cast<double>(m_next), m_way, frames);
}

void SoundRun::take(std::span<float> samples) {
  if (isAsRecorded()) {
    m_sound.read(m_next, samples);
    m_next += static_cast<std::int64_t>(samples.size() / kSamplesOfFrame);
    return;
  }
  while (!samples.empty()) {
    const std::size_t frames = std::min(m_stretcher->available(), samples.size() / kSamplesOfFrame);
    m_stretcher->take(samples.first(frames * kSamplesOfFrame));
    samples = samples.subspan(frames * kSamplesOfFrame);
    if (!samples.empty()) feed();
  }
}

void SoundRun::feed() {
  m_read.resize(Stretcher::kMostFrames * kSamplesOfFrame);
  m_sound.read(m_next, m_read);
  m_stretcher->put(m_read);
  m_next += static_cast<std::int64_t>(Stretcher::kMostFrames);
}

}  // namespace korvel::platform
