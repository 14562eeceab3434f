// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

#include "tab/layout/LoopRange.h"

namespace korvel {

class QBSong;

/// How a song is practised.
struct Practice {
  std::optional<ChordSpan> passage;  ///< Again and again; none for the whole song.
  int speed = 100;                   ///< Percent of the recording's.
  bool countIn = true;
  bool metronome = true;
};

/// What the song's loop is, and nothing for a loop without one of its ends.
std::optional<ChordSpan> passageOf(QBSong& song);
/// Makes it the song's loop, or takes that away: an undoable action, unless it is so already.
/// Throws StoreError and EditRefused; nothing has changed then.
void choosePassage(QBSong& song, const std::optional<ChordSpan>& passage);

/// The first line of the tablature of what is practised.
std::string previewOf(const Practice& practice, QBSong& song);

}  // namespace korvel
