// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/playing/HeldChord.h"

#include <algorithm>

#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"

namespace korvel {
namespace {

/// Of the active tones of a chord; 0 where nothing is struck.
int ticksOfLongest(const QBChord& chord) {
  int longest = 0;
  if (const QBHold* hold = chord.hold())
    for (const QBTone* tone : hold->tones())
      if (tone->isActive())
        longest = std::max(longest, tone->ticks() > 0 ? tone->ticks() : chord.ticks());
  return longest;
}

}  // namespace

int chordHeldAt(QBSong& song, int chord) {
  if (!song.isOnBeats()) return chord;
  const auto& chords = song.allChords();
  int passed = 0;
  for (int before = chord; before >= 0; --before) {
    const QBChord& each = *chords.at(static_cast<std::size_t>(before));
    if (before < chord) passed += each.ticks();
    if (const int longest = ticksOfLongest(each)) return longest > passed ? before : chord;
  }
  return chord;
}

}  // namespace korvel
