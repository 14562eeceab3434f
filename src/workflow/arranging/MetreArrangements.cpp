// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/arranging/MetreArrangements.h"

#include "arrange/chords/QBApplyMetric.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBSong.h"
#include "tab/filters/QBTabFilter.h"
#include "tab/text/SongDrawing.h"
#include "workflow/arranging/ArrangedSong.h"
#include "workflow/arranging/DerivedSong.h"
#include "workflow/arranging/bars/OtherMetre.h"

namespace korvel {

QBSong* applyMetric(QBSong& song, int beat, int beattype) {
  const std::string title = nameOf(song).applyMetric(beat, beattype);
  if (song.isOnBeats()) return finished(laidAnew(song, beat, beattype, title), title);
  QBSong* copy = song.clone();
  QBApplyMetric visitor(beat, beattype, copy);
  copy->setTitle(title);
  copy->iterate(visitor);
  keepWords(song, *copy);
  buildTab(*copy);
  return copy;
}

QBSong* toPicking(QBSong& song) {
  const std::string title = nameOf(song).applyPicking();
  QBSong* copy = song.clone();
  copy->setTitle(title);
  if (song.isOnBeats())
    keepTimes(song, *copy);
  else
    QBTabFilter(&song, copy).filter();
  buildTab(*copy);
  return copy;
}

QBSong* laidIntoMetre(QBSong& song, int beat, int beattype, const std::string& title) {
  if (song.isOnBeats()) return finished(applyMetric(song, beat, beattype), title);
  QBSong* picked = toPicking(song);
  QBSong* measured = applyMetric(*picked, beat, beattype);
  song.requireAlbum().deleteSong(picked);
  return finished(measured, title);
}

}  // namespace korvel
