// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

#include "platform/persistence/Ref.h"

namespace korvel {

class QBSong;

/// Marks a song that a job or a recording is still filling, for as long as it lives. Such a song is
/// not edited by hand: the next chord would not know of the edit.
class SongInWork {
 public:
  /// By a job, which rests while the song is deleted, or by a recording, which cannot.
  enum class Filler : std::uint8_t { job, recording };

  SongInWork(QBSong* song, Filler filler);
  SongInWork(const SongInWork&) = delete;
  SongInWork& operator=(const SongInWork&) = delete;
  ~SongInWork();

  static bool is(const QBSong& song) { return of(song) != nullptr; }
  /// Throws EditRefused for a song that is being recorded.
  static void requireDeletable(const QBSong& song);

 private:
  static const SongInWork* of(const QBSong& song);

  const platform::Ref<QBSong> m_song;
  const Filler m_filler;
};

}  // namespace korvel
