// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <vector>

#include "platform/loop/Slices.h"
#include "rhythm/WishedLimits.h"
#include "rhythm/beats/Onset.h"

namespace korvel::rhythm {

/// Finds tracks of beats in several manners: for beats divided by two and by three, for a tempo
/// that bends and for loose timing. Which of them is best, the next pass decides.
class TrackSearch {
 public:
  /// One onset at least. Both are read as long as the search lives.
  TrackSearch(std::span<const Onset> onsets, const WishedLimits& wished)
      : m_onsets(onsets), m_wished(wished) {}

  platform::Slices run();
  /// After the run, once.
  std::vector<BeatTrack> take() { return std::move(m_tracks); }

 private:
  std::span<const Onset> m_onsets;
  const WishedLimits& m_wished;
  std::vector<BeatTrack> m_tracks;
};

}  // namespace korvel::rhythm
