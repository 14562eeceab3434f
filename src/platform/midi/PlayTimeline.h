// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace korvel::platform {

/// Which place of a sequence each frame of the last seconds came from. One thread notes what it
/// renders, others look up what can be heard by now; none waits.
class PlayTimeline {
 public:
  struct Place {
    double beat = 0;
    std::uint32_t seek = 0;  ///< How many seeks went before.
  };

  /// Notes where the frames from this one on come from, up to the next call; frames only grow.
  void note(std::uint64_t frame, const Place& place, double beatsPerFrame);
  /// None before the first note.
  std::optional<Place> at(double frame) const;
  /// Only while no other thread uses it.
  void clear() { m_count = 0; }

 private:
  static constexpr std::uint64_t kSpans = 512;
  /// The writer may be just replacing the oldest spans.
  static constexpr std::uint64_t kReadable = kSpans - 2;

  struct Span {
    std::atomic<std::uint64_t> frame = 0;
    std::atomic<double> beat = 0;
    std::atomic<double> beatsPerFrame = 0;
    std::atomic<std::uint32_t> seek = 0;
  };

  std::array<Span, kSpans> m_spans;
  std::atomic<std::uint64_t> m_count = 0;
};

}  // namespace korvel::platform
