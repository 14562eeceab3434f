// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/songs/QBAlbum.h"

#include "model/instruments/QBInstrument.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "platform/persistence/EntityDescription.h"

namespace korvel {

platform::EntityDescription QBAlbum::describe() {
  return platform::EntityBuilder<QBAlbum>("QBAlbum")
      .root()
      .attribute<&QBAlbum::m_name>("name")
      .attribute<&QBAlbum::m_locked>("locked")
      .attribute<&QBAlbum::m_descr>("descr")
      .toMany<&QBAlbum::m_songs>("songs", "QBSong", "album")
      .build();
}

platform::Members<QBSong> QBAlbum::songs() const { return members(m_songs); }

QBSong* QBAlbum::findSongByIndex(std::size_t index) const { return songs().at(index); }

QBSong* QBAlbum::findSongByName(const std::string& title) const {
  for (QBSong* song : songs())
    if (song->title() == title) return song;
  return nullptr;
}

QBSong* QBAlbum::createSong(const std::string& title) {
  QBTabMgr& db = QBTabMgr::of(*this);
  QBInstrument* instrument = db.selectedInstrument();
  return db.createSong(title, instrument ? instrument->tuning() : nullptr, instrument, this);
}

void QBAlbum::deleteSong(QBSong* song) {
  if (!song) return;
  song->setAlbum(nullptr);
  QBTabMgr::of(*this).deleteSong(song);
}

QBAlbum* QBAlbum::clone() const {
  QBAlbum* copy = QBTabMgr::of(*this).createAlbum(name(), isLocked());
  for (const auto& song : songs().snapshot()) song->cloneToAlbum(copy);
  return copy;
}

}  // namespace korvel
