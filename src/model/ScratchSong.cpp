// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/ScratchSong.h"

#include <utility>

#include "model/QBAlbum.h"
#include "model/QBInstrument.h"
#include "model/QBSong.h"
#include "model/QBTabMgr.h"
#include "model/QBTuning.h"

namespace korvel {

ScratchSong::ScratchSong(const std::string& albumName, const std::string& title,
                         QBInstrument* instrument) {
  QBTabMgr& db = QBTabMgr::db();
  m_album = db.createAlbum(albumName, false);
  m_song = db.createSong(title, instrument ? instrument->tuning() : nullptr, instrument, m_album);
}

ScratchSong::~ScratchSong() {
  try {
    dispose();
  } catch (...) {  // nothing may leave a destructor; the objects were never saved
  }
}

void ScratchSong::dispose() {
  m_song = nullptr;
  const platform::Ref<QBAlbum> album = std::exchange(m_album, nullptr);
  if (album) QBTabMgr::db().deleteAlbum(album);
}

}  // namespace korvel
