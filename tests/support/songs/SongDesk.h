// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/songs/QBAlbum.h"
#include "model/songs/QBSong.h"
#include "platform/persistence/Ref.h"
#include "support/RecordingViews.h"
#include "support/store/ScratchFolder.h"

namespace korvel::test {

/// What a command did: the songs that it made, and what it said.
struct Performance {
  bool succeeded;
  std::vector<platform::Ref<QBSong>> songs;
  std::vector<std::string> log;
};

/// A seeded store with one album, to whose songs commands are given as from their menu. Files are
/// exported into the store's folder.
class SongDesk final : SavePanel {
 public:
  SongDesk();
  SongDesk(const SongDesk&) = delete;
  SongDesk& operator=(const SongDesk&) = delete;
  ~SongDesk() override;

  QBAlbum* album() const { return m_album; }
  const ScratchFolder& folder() const { return m_folder; }
  Performance perform(QBSong* song, std::string_view command);
  /// A drawn and saved song of chords as `addChord` takes them, named.
  QBSong* song(const std::vector<std::string>& chords, int duration = 1);
  /// Imports a recording from samples.
  QBSong* import(const std::vector<std::int16_t>& samples, const std::string& title);
  void deleteSongs(const std::vector<platform::Ref<QBSong>>& songs);
  /// Saves, closes the store and opens it again; songs that are held are cut off from it.
  void reopen();

 private:
  std::optional<std::string> chooseFile(const std::string& name) override {
    return m_folder.file(name);
  }
  void open();

  const ScratchFolder m_folder;
  RecordingViews m_views;
  platform::Ref<QBAlbum> m_album;
};

/// Every command's name, in the order of the menu.
std::vector<std::string> songCommands();

/// A line for each chord: position, duration, measure, harmony and the tones as string/fret, by
/// string, with "*" and their duration if that is not a new tone's, in parentheses when they are
/// silenced.
std::string linesOf(const QBSong& song);

}  // namespace korvel::test
