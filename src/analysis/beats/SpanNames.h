// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "fingering/Note.h"
#include "rhythm/Reading.h"

namespace korvel {

class QBHarmony;
class QBTabMgr;

/// Tells the reading's chords which pitch classes sound for a good part of them; passing notes are
/// not among them, nor are those that no string plays.
void tellPitchClasses(std::span<const fingering::Note> notes, rhythm::Reading& reading);

/// As the chord book calls it: "m7", and by the pitch classes what the quality does not tell, such
/// as "sus4".
std::string_view typeOf(const rhythm::ChordSpan& span);

/// The pitch classes that a chord of that name has, whatever of them sounds; bit n for pitch class
/// n. 0 for no chord.
unsigned tonesOfName(const rhythm::ChordSpan& span);

/// As annotations of chords call it: root, and what it is by third, fifth and seventh, such as
/// "A:min7"; "N" for no chord.
std::string labelOf(const rhythm::ChordSpan& span);

/// The harmony of the chord book of that type; none when the book lacks it.
QBHarmony* harmonyOf(const QBTabMgr& db, const rhythm::ChordSpan& span);

}  // namespace korvel
