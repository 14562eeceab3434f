// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "workflow/arranging/guided/SongGuide.h"

namespace korvel {

/// How a song accompanies a singer.
struct SingChoices {
  bool plain = true;  ///< Major and minor chords only; else as they are named.
  int halfTones = 0;  ///< To the singer's key, from -11 to 11.
};

/// Names of chords and strums: one grip for each chord, wherever it comes.
SongGuide singAlong(const SingChoices& choices);

/// The name of the song's first chord once it is moved so far: what a singer knows a key by. "" for
/// a song of which no chord has a name.
std::string firstChordAt(QBSong& song, int halfTones);

}  // namespace korvel
