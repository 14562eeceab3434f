// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workflow/arranging/guided/OpenKey.h"
#include "workflow/arranging/guided/SongGuide.h"

namespace korvel {

/// What an easy version keeps of a song.
enum class EasyTones { melody, bassAndMelody, chords };

/// What makes a song easy; its rhythm stays.
struct EasyChoices {
  EasyTones tones = EasyTones::chords;  ///< Plain ones in their easiest grips.
  EasyKey key = EasyKey::asRecorded;
  /// Above it nothing is played: tones move by octaves below it, and of a chord that has no grip so
  /// low the easiest one is taken.
  int highestFret = 3;
};

/// An easy version of a song, under its title with the tags of what was done to it.
SongGuide easyVersion(const EasyChoices& choices);

/// The fret of the capo with which that version sounds as recorded; 0 for none.
int capoOf(const EasyChoices& choices, QBSong& song);

}  // namespace korvel
