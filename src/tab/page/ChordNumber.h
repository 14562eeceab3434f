// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <string>

#include "tab/page/SongPage.h"

namespace korvel {

/// A chord by the steps of a key instead of a name. key: the pitch class of the tonic, 12 more in
/// minor. chord: with a root.
std::string chordNumber(const PageSource::Chord& chord, int key, ChordNumbers numbers);

/// The key that most of the time has the tones of, its tonic and the first and last chord counting
/// more; -1 without chords.
int guessedKey(std::span<const PageSource::Chord> chords);

/// "A" or "Am", as a key is written.
std::string nameOfKey(int key);

}  // namespace korvel
