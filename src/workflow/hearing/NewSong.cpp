// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/hearing/NewSong.h"

#include <algorithm>

#include "model/songs/QBAlbum.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "workflow/library/NameRules.h"
#include "workflow/library/QBNameMgr.h"

namespace korvel {

NewSong::NewSong(QBTabMgr& db, const std::optional<std::string>& album, const std::string& name,
                 const std::optional<std::string>& title)
    : m_db(db) {
  const std::string wanted = album ? *album : QBNameMgr(nullptr, name).newAlbumName(db);
  requireShortName(wanted);
  requireShortName(title.value_or(name));
  m_album = db.findAlbumByName(wanted);
  m_madeAlbum = !m_album;
  if (!m_album) m_album = db.createAlbum(wanted, false);
  const std::string ownTitle = album ? name : wanted;
  m_song = m_album->createSong(QBNameMgr(m_album, title.value_or(ownTitle)).newName());
}

NewSong::~NewSong() {
  if (m_kept) return;
  m_album->deleteSong(m_song);
  if (m_madeAlbum && m_album->songs().empty()) m_db.deleteAlbum(m_album);
}

bool hasTones(const QBSong& song) {
  return std::ranges::any_of(song.chords().snapshot(), [](const auto& chord) {
    return chord->hold() && !chord->hold()->isEmpty();
  });
}

}  // namespace korvel
