// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/songs/QBAlbum.h"

#include "model/songs/QBSong.h"
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

}  // namespace korvel
