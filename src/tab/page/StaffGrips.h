// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "arrange/hands/HandShapes.h"

namespace korvel {
class QBSong;
}

namespace korvel {

/// A shape that is drawn above the staff of a tablature, where a chord of that name begins.
struct StaffGrip {
  int chord;         ///< Index in the song's `allChords`.
  ChordShape shape;  ///< Counted from the capo, as its name there is that of the shape.
};

/// One for each change of chord, by chord: as it is played or, where its tones are not struck
/// together, the easiest shape of its name. Chords that no hand reaches are left out.
std::vector<StaffGrip> staffGripsOf(QBSong& song);

}  // namespace korvel
