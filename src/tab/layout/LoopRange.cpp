// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/layout/LoopRange.h"

#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"

namespace korvel {
namespace {

int positionOf(const QBChord* chord) { return chord ? chord->position() : -1; }

}  // namespace

LoopRange::LoopRange(const QBSong* song) {
  if (!song) return;
  from = positionOf(song->fromChord());
  to = positionOf(song->toChord());
}

ChordSpan loopOf(QBSong& song) {
  ChordSpan span;
  int index = 0;
  for (const auto& chord : song.allChords()) {
    if (chord == song.fromChord()) span.first = index;
    if (chord == song.toChord()) span.last = index;
    ++index;
  }
  return span;
}

}  // namespace korvel
