// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/arranging/HandArrangements.h"

#include "model/songs/QBAlbum.h"
#include "model/songs/QBSong.h"
#include "tab/filters/QBTabToneTrimmer.h"
#include "tab/text/SongDrawing.h"
#include "workflow/arranging/ArrangedSong.h"
#include "workflow/arranging/DerivedSong.h"
#include "workflow/exporting/ExportFolder.h"

namespace korvel {

QBSong* trimToPlayable(QBSong& song, const std::string& title) {
  return finished(QBTabToneTrimmer(&song.requireAlbum(), &song).trimmer(), title);
}

QBSong* trimmedForPlayers(QBSong& song, const std::string& title) {
  QBSong* chordTones = QBTabToneTrimmer::removeNoneChordTones(&song);
  QBSong* contrary = QBTabToneTrimmer::contraPoint(chordTones);
  QBSong* playable = QBTabToneTrimmer::applyRightHandPattern(contrary);
  if (song.isOnBeats())
    for (QBSong* stage : {chordTones, contrary, playable}) keepTimes(song, *stage);
  if (sounds(*playable)) {
    ExportFolder folder(title);
    folder.write(song.title() + "(NonChords)", toStringForExport(*chordTones));
    folder.write(song.title() + "(Contra)", toStringForExport(*contrary));
    folder.write(song.title() + "(RightHand)", toStringForExport(*playable));
    folder.keep();
  }
  for (QBSong* stage : {chordTones, contrary}) song.requireAlbum().deleteSong(stage);
  return finished(playable, title);
}

}  // namespace korvel
