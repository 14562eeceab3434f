// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <vector>

#include "arrange/harmony/ChordName.h"
#include "rhythm/harmony/ChordTones.h"

namespace korvel {

class QBTabMgr;

/// A name that explains what sounds, and how probable it is among all names of the chord book.
struct WeighedName {
  ChordName name;
  double weight = 0;  ///< 0..1
};

/// The names that explain best what sounds, the best first. As chords are found on beats
/// (`scoresOfChords`), but by all types of the chord book: what a name has and nobody plays speaks
/// against it, and so does each tone that it needs beyond three. None where nothing sounds.
std::vector<WeighedName> bestNames(const QBTabMgr& db, const rhythm::Sounding& sounding,
                                   std::size_t most);

}  // namespace korvel
