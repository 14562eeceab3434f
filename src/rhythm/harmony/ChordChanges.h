// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <vector>

#include "fingering/Note.h"
#include "rhythm/beats/Onset.h"
#include "rhythm/judging/BarFit.h"

namespace korvel::rhythm {

/// When the chords of a recording change, found without its beats: they mostly do on bar lines.
class ChordChanges {
 public:
  ChordChanges(std::span<const Onset> onsets, std::span<const fingering::Note> notes);

  /// How well the changes fall on the bars of a track. A logarithm, in comparison with changes
  /// anywhere; little for a melody alone, which has no chords to speak of.
  double fit(const BeatTrack& track, const Bars& bars) const;

  std::span<const double> times() const { return m_times; }

 private:
  struct Stretches;

  void find(const Stretches& stretches, std::span<const std::size_t> chords);
  std::size_t putBack(const Stretches& stretches, std::size_t at, std::size_t chord) const;

  std::vector<double> m_times;
  double m_trust = 0;
};

}  // namespace korvel::rhythm
