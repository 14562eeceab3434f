// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/midi/PlayTimeline.h"

#include <algorithm>

namespace korvel::platform {

// Stores release and loads acquire, so that a reader which sees a span half renewed also sees that
// the count has moved on.

void PlayTimeline::note(std::uint64_t frame, const Place& place, double beatsPerFrame) {
  const std::uint64_t count = m_count.load(std::memory_order_relaxed);
  Span& span = m_spans[count % kSpans];
  span.frame.store(frame, std::memory_order_release);
  span.beat.store(place.beat, std::memory_order_release);
  span.beatsPerFrame.store(beatsPerFrame, std::memory_order_release);
  span.seek.store(place.seek, std::memory_order_release);
  m_count.store(count + 1, std::memory_order_release);
}

std::optional<PlayTimeline::Place> PlayTimeline::at(double frame) const {
  while (const std::uint64_t count = m_count.load(std::memory_order_acquire)) {
    const std::uint64_t oldest = count > kReadable ? count - kReadable : 0;
    std::uint64_t index = count - 1;
    const auto startOf = [&](std::uint64_t i) {
      return static_cast<double>(m_spans[i % kSpans].frame.load(std::memory_order_acquire));
    };
    while (index > oldest && startOf(index) > frame) --index;
    const Span& span = m_spans[index % kSpans];
    const double passed = std::max(frame - startOf(index), 0.0);
    const Place place{span.beat.load(std::memory_order_acquire) +
                          passed * span.beatsPerFrame.load(std::memory_order_acquire),
                      span.seek.load(std::memory_order_acquire)};
    if (m_count.load(std::memory_order_acquire) <= index + kReadable) return place;
  }
  return std::nullopt;
}

}  // namespace korvel::platform
