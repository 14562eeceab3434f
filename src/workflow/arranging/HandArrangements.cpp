// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/arranging/HandArrangements.h"

#include "arrange/hands/QBLeftHandExtractorPello.h"
#include "arrange/hands/QBPlectrumExtractor.h"
#include "arrange/hands/QBRightHandExtractor.h"
#include "arrange/hands/QBToneToNextString.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBSong.h"
#include "tab/filters/BestFingering.h"
#include "tab/filters/QBTabToneTrimmer.h"
#include "tab/text/SongDrawing.h"
#include "workflow/arranging/ArrangedSong.h"
#include "workflow/exporting/ExportFolder.h"

namespace korvel {
namespace {

/// Deletes an intermediate song.
QBSong* withoutStep(QBSong* song, QBSong* step, const std::string& title) {
  song->requireAlbum().deleteSong(step);
  return finished(song, title);
}

}  // namespace

QBSong* extractPlectrumLead(QBSong& song) {
  return filtered(song, nameOf(song).extractPlectrumLead(), QBPlectrumExtractor(0));
}

QBSong* extractPlectrumSecond(QBSong& song) {
  return filtered(song, nameOf(song).extractPlectrumSecond(), QBPlectrumExtractor(1));
}

QBSong* extractPlectrumThird(QBSong& song) {
  return filtered(song, nameOf(song).extractPlectrumThird(), QBPlectrumExtractor(2));
}

QBSong* pushDownStrings(QBSong& song) {
  return rewrittenBy<QBToneToNextString>(song, nameOf(song).pushDownStrings());
}

QBSong* toLeftHand(QBSong& song) {
  return rewrittenBy<QBLeftHandExtractorPello>(song, nameOf(song).toLeftHand());
}

QBSong* toRightHand(QBSong& song) {
  return rewrittenBy<QBRightHandExtractor>(song, nameOf(song).toRightHand());
}

QBSong* toLeftRightHand(QBSong& song) {
  const std::string title = nameOf(song).toLeftRightHand();
  QBSong* left = toLeftHand(song);
  return withoutStep(toRightHand(*left), left, title);
}

QBSong* toRightLeftHand(QBSong& song) {
  const std::string title = nameOf(song).toRightLeftHand();
  QBSong* right = toRightHand(song);
  return withoutStep(toLeftHand(*right), right, title);
}

QBSong* findBestFingering(QBSong& song) {
  return filtered(song, nameOf(song).findBestFingering(), BestFingering());
}

QBSong* trimToPlayable(QBSong& song) { return trimToPlayable(song, nameOf(song).trimToPlayable()); }

QBSong* trimToPlayable(QBSong& song, const std::string& title) {
  return finished(QBTabToneTrimmer(&song.requireAlbum(), &song).trimmer(), title);
}

QBSong* trimmedForPlayers(QBSong& song, const std::string& title) {
  QBSong* chordTones = QBTabToneTrimmer::removeNoneChordTones(&song);
  QBSong* contrary = QBTabToneTrimmer::contraPoint(chordTones);
  QBSong* playable = QBTabToneTrimmer::applyRightHandPattern(contrary);
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
