// SPDX-License-Identifier: GPL-3.0-or-later
#include "audio/KeptSound.h"

#include <algorithm>

namespace korvel {
namespace {

constexpr std::size_t kChunk = 16384;

}  // namespace

KeptSound::KeptSound(int rate) : m_rate(rate) {}

void KeptSound::keep(std::span<const std::int16_t> samples) {
  m_samples.insert(m_samples.end(), samples.begin(), samples.end());
}

void KeptSound::startRecord(float) {
  m_mixer = {};
  m_next = 0;
  m_stopped = false;
  m_reading = true;
}

std::span<const float> KeptSound::readSamples() {
  m_converted.clear();
  while (isReading() && m_converted.empty()) {
    const auto chunk =
        std::span(m_samples).subspan(m_next, std::min(kChunk, m_samples.size() - m_next));
    m_reading = !chunk.empty();
    if (m_reading)
      m_mixer.append(chunk, m_rate, m_converted);
    else
      m_mixer.finish(m_converted);
    m_next += chunk.size();
  }
  return m_converted;
}

double KeptSound::progress() const {
  const bool reads = isReading() && !m_samples.empty();
  return reads ? static_cast<double>(m_next) / static_cast<double>(m_samples.size()) : 1;
}

}  // namespace korvel
