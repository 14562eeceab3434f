// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

#include "platform/persistence/Ref.h"

namespace korvel {

class QBAlbum;
class QBSong;
class QBTabMgr;

/// A song that is still to be filled, in an album that is made when it is missing. Unless it is
/// kept, the song is taken back with this object, and so is the album unless other songs have come
/// into it; nothing is saved here.
class NewSong {
 public:
  /// Without an album one of its own, of that name. The title is the name too, unless one is given.
  /// Names of songs and of own albums are made free.
  NewSong(QBTabMgr& db, const std::optional<std::string>& album, const std::string& name,
          const std::optional<std::string>& title = std::nullopt);
  NewSong(const NewSong&) = delete;
  NewSong& operator=(const NewSong&) = delete;
  ~NewSong();

  void keep() { m_kept = true; }
  QBAlbum* album() const { return m_album; }
  QBSong* song() const { return m_song; }

 private:
  QBTabMgr& m_db;
  platform::Ref<QBAlbum> m_album;
  platform::Ref<QBSong> m_song;
  bool m_madeAlbum = false;
  bool m_kept = false;
};

/// Whether anything was heard in the song: some chord has a tone.
bool hasTones(const QBSong& song);

}  // namespace korvel
