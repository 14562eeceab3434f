// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "music/OpenStrings.h"

namespace korvel {

class QBChord;
class QBHold;
class QBSong;
class QBTone;
class QBTuning;

// A song keeps the tuning that it was made in, and everything in it sounds on those strings,
// whichever tuning is selected.

/// The song's own tuning, or the selected one for a song without and for none; null without either.
QBTuning* tuningOf(const QBSong* song);

/// The strings that it sounds on; those of standard tuning where there is no tuning at all.
OpenStrings openStringsOf(const QBSong* song);
OpenStrings openStringsOf(const QBChord& chord);
OpenStrings openStringsOf(const QBHold& hold);
OpenStrings openStringsOf(const QBTone& tone);

/// The fret that its capo is at: the song's own, or the one that its recording was heard with; 0
/// without one. The strings above are those without it.
int capoOf(const QBSong& song);

}  // namespace korvel
