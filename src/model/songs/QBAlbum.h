// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <utility>

#include "platform/persistence/ManagedObject.h"

namespace korvel {

class QBSong;

/// A named collection of songs.
class QBAlbum final : public platform::ManagedObject {
 public:
  static platform::EntityDescription describe();

  const std::string& name() const { return read(m_name); }
  void setName(std::string value) { assign(m_name, std::move(value)); }
  bool locked() const { return read(m_locked); }
  void setLocked(bool value) { assign(m_locked, value); }
  const std::string& descr() const { return read(m_descr); }
  void setDescr(std::string value) { assign(m_descr, std::move(value)); }
  platform::Members<QBSong> songs() const;

  bool isLocked() const { return locked(); }
  /// Element i of `songs`; std::out_of_range beyond it.
  QBSong* findSongByIndex(std::size_t index) const;
  /// The first song of exactly that title, or none.
  QBSong* findSongByName(const std::string& title) const;
  /// A new song of the selected instrument, in that instrument's tuning.
  QBSong* createSong(const std::string& title);
  /// Takes the song out of the album and deletes it; nothing happens without a song.
  void deleteSong(QBSong* song);
  /// A new album of the same name with a clone of every song.
  QBAlbum* clone() const;

 private:
  platform::Attribute<std::string> m_name;
  platform::Attribute<bool> m_locked;
  platform::Attribute<std::string> m_descr;
  platform::ToMany<QBSong> m_songs;
};

}  // namespace korvel
