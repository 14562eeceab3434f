// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/filters/QBTabToneTrimmer.h"

#include <algorithm>
#include <string>

#include "arrange/hands/QBApplyRightHands.h"
#include "arrange/harmony/QBContraPoint.h"
#include "arrange/harmony/QBNonChordToneRemover.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBSong.h"
#include "model/store/QBSettings.h"
#include "model/store/QBTabMgr.h"
#include "platform/files/Files.h"
#include "tab/text/SongDrawing.h"

namespace korvel {
namespace {

QBSong* cloneThrough(QBSong* song, QBChordVisitor&& filter, const char* mark) {
  QBSong* clone = song->clone();
  clone->iterate(filter);
  clone->setTitle(clone->title() + mark);
  return clone;
}

std::string madeTabDirectory(const QBTabMgr& db) {
  const QBSettings* settings = db.selectedSettings();
  const std::string folder = settings ? settings->tabDirectory() : "./Tab/";
  platform::makeFolders(folder);
  return folder;
}

/// A slash in a title must not lead into another folder.
std::string fileNameOf(std::string title) {
  std::ranges::replace(title, '/', '_');
  return title;
}

}  // namespace

QBTabToneTrimmer::QBTabToneTrimmer(QBAlbum* album, QBSong* source)
    : m_album(album), m_source(source) {}

QBTabToneTrimmer::~QBTabToneTrimmer() = default;

QBSong* QBTabToneTrimmer::trimmer() {
  QBSong* chordTones = removeNoneChordTones(m_source);
  QBSong* contrary = contraPoint(chordTones);
  QBSong* playable = applyRightHandPattern(contrary);
  const std::string file =
      madeTabDirectory(QBTabMgr::of(*m_source)) + fileNameOf(m_source->title());
  tofile(*chordTones, file + "(NonChords).txt");
  tofile(*contrary, file + "(Contra).txt");
  tofile(*playable, file + "(RightHand).txt");
  for (QBSong* stage : {chordTones, contrary}) m_album->deleteSong(stage);
  playable->setTitle(m_source->title() + "(trimmed)");
  return playable;
}

QBSong* QBTabToneTrimmer::removeNoneChordTones(QBSong* song) {
  return cloneThrough(song, QBNonChordToneRemover(), "(1)");
}

QBSong* QBTabToneTrimmer::contraPoint(QBSong* song) {
  return cloneThrough(song, QBContraPoint(), "(2)");
}

QBSong* QBTabToneTrimmer::applyRightHandPattern(QBSong* song) {
  return cloneThrough(song, QBApplyRightHands(), "(3)");
}

}  // namespace korvel
