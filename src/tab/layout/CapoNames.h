// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace korvel {

class QBChord;
class QBSong;

/// The fret of the capo that the tablature of a song is read with: what `capoOf` says, unless a
/// tone lies below it. 0 without one, and where nothing sounds. Frets count from the nut all the
/// same.
int capoOfTablature(QBSong& song);

/// What a chord is called behind a capo.
struct CapoName {
  std::string sounding;  ///< As its key writes it; "" without a harmony.
  std::string shape;     ///< What a hand holds, "G" for an A at fret 2; "" where no capo is.

  /// "G (A)", or without a capo the one name.
  std::string text() const;
};

CapoName capoNameOf(const QBChord& chord, int capo);

}  // namespace korvel
