// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <vector>

#include "analysis/bands/BandGrips.h"
#include "tab/page/SongPage.h"

namespace korvel {

/// Finds how the chords of a page are held, on the strings of a song and behind a capo.
class PageGrips {
 public:
  static constexpr std::size_t kOthers = 6;

  PageGrips(const OpenPitches& open, int capo);

  /// Ways to hold a chord that sounds so, the best first, counted from the capo.
  std::vector<ChordShape> waysToHold(const PageSource::Chord& sounding);

  /// Fills in frets, fingers and where a diagram begins. played: the shape that the song has for
  /// it, counted from the capo; without one the best, in which the lowest tone is the bass that the
  /// name has. False when no hand plays the chord.
  bool hold(const PageSource::Chord& sounding, const std::optional<ChordShape>& played,
            PageGrip& grip);

  /// Whether it is a chord that is learnt first: at the first three frets, with an open string and
  /// the root as the lowest tone, and no finger across strings.
  bool isOpenChord(const PageSource::Chord& sounding);

 private:
  bool hasBass(const ChordShape& shape, int bass) const;

  OpenPitches m_open;  ///< Behind the capo.
  BandGrips m_grips;
};

/// The hand's fingers for a shape, 0 for strings that none presses, and whether the index lies
/// across. At the lowest fret it does where four fingers are not enough.
void tellFingers(PageGrip& grip);
/// For a left hand: the strings the other way round.
void mirror(PageGrip& grip);

}  // namespace korvel
