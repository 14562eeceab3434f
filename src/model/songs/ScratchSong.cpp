// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/songs/ScratchSong.h"

#include <utility>

#include "model/instruments/QBInstrument.h"
#include "model/instruments/QBTuning.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"

namespace korvel {

ScratchSong::ScratchSong(QBTabMgr& db, const std::string& albumName, const std::string& title,
                         QBTuning* tuning, QBInstrument* instrument) {
  m_album = db.createAlbum(albumName, false);
  m_song = db.createSong(title, tuning, instrument, m_album);
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
  if (album) QBTabMgr::of(*album).deleteAlbum(album);
}

}  // namespace korvel
