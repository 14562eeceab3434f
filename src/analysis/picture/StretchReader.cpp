// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/picture/StretchReader.h"

#include <algorithm>

#include "platform/media/MediaError.h"

namespace korvel {

using platform::phrase;

namespace {

/// What lies so little ahead is read on to: five seconds.
constexpr std::int64_t kReadOn = 5 * platform::MonoReader::kRate;

}  // namespace

bool StretchReader::read(std::int64_t first, std::span<float> samples,
                         const std::function<bool()>& stopped) {
  std::ranges::fill(samples, 0.0F);
  const std::int64_t begin = std::max<std::int64_t>(first, 0);
  const std::int64_t wanted = first + static_cast<std::int64_t>(samples.size());
  if (!m_reader) open();
  if (begin < m_first || begin > end() + kReadOn) goTo(begin);
  do {
    if (stopped()) return false;
    dropBefore(begin);
  } while (end() < wanted && readOn());
  const auto count = std::min(end(), wanted) - begin;
  if (m_first == begin && count > 0)
    std::copy_n(m_samples.begin(), count, samples.begin() + (begin - first));
  return true;
}

/// Where the file cannot be read from a place on, from its beginning.
void StretchReader::goTo(std::int64_t first) {
  m_samples.clear();
  const auto place = m_reader ? m_reader->seek(first) : std::nullopt;
  m_first = place.value_or(0);
  if (!place) open();
}

void StretchReader::open() {
  const platform::MediaAsset asset(m_file);
  const platform::MediaTrack* sound = asset.firstSound();
  if (sound) m_reader.emplace(asset, *sound);
  if (!sound || !m_reader->start())
    throw platform::MediaError(m_file, phrase("Message", "no sound in it can be decoded"));
}

/// False at the end.
bool StretchReader::readOn() {
  const auto more = m_reader->next();
  m_samples.insert(m_samples.end(), more.begin(), more.end());
  return !more.empty();
}

void StretchReader::dropBefore(std::int64_t first) {
  const auto count = std::clamp<std::int64_t>(first - m_first, 0, std::ssize(m_samples));
  m_samples.erase(m_samples.begin(), m_samples.begin() + count);
  m_first += count;
}

}  // namespace korvel
