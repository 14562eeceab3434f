// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <map>
#include <span>
#include <vector>

#include "fingering/FingeringOptions.h"
#include "music/Neck.h"
#include "rhythm/Reading.h"

namespace korvel {

/// Finds grips for chords of which only the names are known: shapes that guitarists know, with the
/// chord's bass lowest, open ones where the chord has them, and each near the one before.
class BandGrips {
 public:
  /// The fret of each string, counted from the nut, or kLeftAlone.
  using Frets = std::array<int, kStrings>;
  static constexpr int kLeftAlone = -1;

  /// open: the strings without capo.
  BandGrips(const OpenPitches& open, const fingering::FingeringOptions& options);

  /// One for each chord; all strings left alone where there is none, or no hand plays it.
  std::vector<Frets> of(std::span<const rhythm::ChordSpan> chords);

  /// All good ways to hold one chord, the best first, counted from the capo. None for no chord.
  std::vector<Frets> waysToHold(const rhythm::ChordSpan& chord);

 private:
  struct Held {
    Frets frets{};   ///< From the capo.
    int lowest = 0;  ///< The lowest pressed fret; 0 when none is.
    double worth = 0;
  };
  struct Tones;

  const std::vector<Held>& gripsOf(const rhythm::ChordSpan& chord);
  std::vector<Held> found(const rhythm::ChordSpan& chord) const;
  void extend(const Tones& tones, int position, std::size_t string, Frets& frets,
              std::vector<Held>& grips) const;
  void add(const Tones& tones, const Frets& frets, std::vector<Held>& grips) const;

  OpenPitches m_open;
  fingering::FingeringOptions m_options;
  std::map<std::array<unsigned, 3>, std::vector<Held>> m_known;
};

}  // namespace korvel
