// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "platform/persistence/Ref.h"

namespace korvel {

class QBAlbum;
class QBInstrument;
class QBSong;
class QBTabMgr;
class QBTuning;

/// A song in an album of its own, for chords that are needed only while something is worked out.
/// Both are gone from the store at the latest when this goes, whatever was thrown meanwhile.
class ScratchSong {
 public:
  /// In that store, and in the tuning of the song that the chords are of, so that they sound as
  /// they do there.
  ScratchSong(QBTabMgr& db, const std::string& albumName, const std::string& title,
              QBTuning* tuning, QBInstrument* instrument);
  ScratchSong(const ScratchSong&) = delete;
  ScratchSong& operator=(const ScratchSong&) = delete;
  ~ScratchSong();

  /// None once disposed of.
  QBSong* song() const { return m_song; }
  /// Deletes the album with the song and all its chords; nothing the second time.
  void dispose();

 private:
  platform::Ref<QBAlbum> m_album;
  platform::Ref<QBSong> m_song;
};

}  // namespace korvel
