// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <vector>

#include "model/songs/QBAlbum.h"
#include "workflow/exporting/SongFiles.h"
#include "workflow/session/QBCommand.h"

namespace korvel {

/// Writes every song of an album that has chords into a folder, one at each step. Files are named
/// by the songs' titles; those that are there already stay, and the new one's name gets a number.
/// A file that cannot be written is told in the log and ends the command.
class ExportAlbumCommand final : public QBCommand {
 public:
  ExportAlbumCommand(QBAlbum& album, SongFormat format, std::filesystem::path folder);
  ~ExportAlbumCommand() override;

  void prepare() override;
  void execute() override;
  void nextStep() override;
  void tearDown() override;
  std::string fullTitle() const override { return m_type + m_name; }
  /// Takes back what was written.
  void cancelAndDrop() override;

 private:
  /// False when all songs are written.
  bool step();

  platform::Ref<QBAlbum> m_album;
  SongFormat m_format;
  std::filesystem::path m_folder;
  std::vector<platform::Ref<QBSong>> m_songs;
  std::size_t m_next = 0;
  std::vector<std::filesystem::path> m_written;
};

}  // namespace korvel
