// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/arranging/guided/Practice.h"

#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "workflow/arranging/guided/SongGuide.h"
#include "workflow/editing/SongEdits.h"

namespace korvel {

std::optional<ChordSpan> passageOf(QBSong& song) {
  const ChordSpan loop = loopOf(song);
  if (loop.first < 0 || loop.last < loop.first) return std::nullopt;
  return loop;
}

void choosePassage(QBSong& song, const std::optional<ChordSpan>& passage) {
  const ChordSpan loop = loopOf(song);
  if (!passage) {
    if (song.fromChord() || song.toChord()) clearLoop(song);
  } else if (loop.first != passage->first || loop.last != passage->last) {
    setLoop(song, passage->first, passage->last);
  }
}

std::string previewOf(const Practice& practice, QBSong& song) {
  const ChordSpan all{0, static_cast<int>(song.allChords().size()) - 1};
  const ChordSpan shown = practice.passage.value_or(all);
  return firstLineOf(song, shown.first, shown.last);
}

}  // namespace korvel
