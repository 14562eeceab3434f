// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace korvel {

class QBSong;

// Arrangements whose tones lie where a hand plays them over the whole song: each a new song of the
// same album under the title that is given, with its tablature drawn. Silenced tones are left out.
// std::out_of_range when there are no chords to draw, and the new song stays then.

/// Each chord in the grip that is easiest where it stands, the hand near the frets that chords are
/// marked with. A grip that a hand can play is not made wider, and a chord of which a tone would be
/// lost stays as it is, unless a string has two tones.
QBSong* fingeredForHand(QBSong& song, const std::string& title);

/// By so many half tones, down when they are negative. Every pitch that the neck has within its 19
/// frets is kept; others move by octaves onto it, where the chord has not that pitch already.
/// Names move along, and a chord without one is named.
QBSong* transposedForHand(QBSong& song, int halfTones, const std::string& title);

/// The same up to a fret, and by no half tone, too: a tone that has no place so low is played in
/// the nearest octave that has one.
QBSong* loweredForHand(QBSong& song, int halfTones, int highestFret, const std::string& title);

}  // namespace korvel
