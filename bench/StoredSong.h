// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

#include "LongSong.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "support/store/ScratchFolder.h"

namespace korvel::bench {

/// A store as a new user has it, with one saved song of so many chords of six tones and a harmony
/// each, in a process that has read nothing of it yet.
class StoredSong {
 public:
  explicit StoredSong(std::int64_t chords) {
    QBTabMgr::setStorePath(m_folder.file("Korvel.sqlite"));
    addLongSong(db().createAlbum("Bench", false), "Bench", static_cast<int>(chords));
    db().save();
    reopen();
  }
  StoredSong(const StoredSong&) = delete;
  StoredSong& operator=(const StoredSong&) = delete;
  ~StoredSong() {
    QBTabMgr::clearDb();
    QBTabMgr::setStorePath({});
  }

  static void reopen() { QBTabMgr::clearDb(); }
  static QBTabMgr& db() { return QBTabMgr::db(); }
  static QBAlbum* album() { return db().findAlbumByName("Bench"); }
  static QBSong* song() { return album()->findSongByName("Bench"); }

 private:
  test::ScratchFolder m_folder;
};

}  // namespace korvel::bench
