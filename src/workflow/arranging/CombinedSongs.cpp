// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/arranging/CombinedSongs.h"

#include "arrange/chords/QBChordExtractor.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "tab/text/SongDrawing.h"
#include "workflow/arranging/ArrangedSong.h"

namespace korvel {

QBSong* mergeWithSong(QBSong& song, QBSong& other) {
  QBSong& longer = song.allChords().size() >= other.allChords().size() ? song : other;
  QBSong* merged = longer.clone();
  merged->setTitle(merged->title() + "(mrg)");
  // The tones always come from the argument: merged with a longer song, that song's clone takes its
  // own tones, as intended.
  const auto& into = merged->allChords();
  const auto& from = other.allChords();
  for (std::size_t i = 0; i < from.size(); ++i) into[i]->mergeWith(*from[i]);
  buildTab(*merged);
  return merged;
}

QBSong* extractPartOfSong(QBSong& song, int from, int to) {
  QBSong* part = emptyBeside(song, nameOf(song).extractPartChords(from, to));
  return filled(part, song, QBChordExtractor(from, to, part));
}

}  // namespace korvel
