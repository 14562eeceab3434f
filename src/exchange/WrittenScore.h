// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <vector>

#include "exchange/Piece.h"
#include "exchange/PlayedOrder.h"

namespace korvel::exchange {

/// A note as it is written: a tone may be several that are tied.
struct WrittenNote {
  Note note;  ///< `at` counts from the bar line.
  bool tiedBefore = false;
  bool tiedOn = false;
};

/// What a part has in a written bar; places count from the bar line.
struct WrittenMeasure {
  std::vector<WrittenNote> notes;
  std::vector<ChordName> names;
};

struct WrittenPart {
  Track track;                           ///< Without notes and names.
  std::vector<WrittenMeasure> measures;  ///< As many as the score has bars, or fewer.
};

/// A written bar, of which all parts have the same.
struct CommonBar {
  BarSigns signs;
  std::int64_t length = 0;    ///< As far as anything is written in it.
  int beats = 0;              ///< 0 where the time signature of the bar before goes on.
  int beatType = 0;           ///< A power of two up to 64.
  bool isImplicit = false;    ///< A part of a bar only, which is not counted.
  std::vector<Tempo> tempos;  ///< By place, from the bar line.
};

/// Music as it is written, with signs of repeats and ties.
struct WrittenScore {
  Piece head;  ///< What does not depend on the order: all but bars, tempos and tracks.
  std::vector<CommonBar> bars;
  std::vector<WrittenPart> parts;
};

/// Plays the repeats out, joins what is tied and fills the bars: one that is short is a pick-up at
/// the beginning, half of a bar that a repeat sign divides, or is filled with silence. A bar that
/// is longer than its time signature says gets one of its own. Throws a UserError where the repeats
/// make more than a player would sit through.
Piece playedPiece(WrittenScore score);

}  // namespace korvel::exchange
