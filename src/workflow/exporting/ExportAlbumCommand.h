// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <vector>

#include "model/songs/QBAlbum.h"
#include "workflow/exporting/SongFiles.h"
#include "workflow/exporting/WritingCommand.h"

namespace korvel {

/// Writes every song of an album, or every one that is given, that has chords into a folder, one at
/// each step. Files are named by the songs' titles; those that are there already stay, and the new
/// one's name gets a number.
class ExportAlbumCommand final : public WritingCommand {
 public:
  ExportAlbumCommand(QBAlbum& album, SongFormat format, const std::filesystem::path& folder);
  ExportAlbumCommand(std::vector<platform::Ref<QBSong>> songs, SongFormat format,
                     const std::filesystem::path& folder);
  ~ExportAlbumCommand() override;

  void prepare() override;
  void tearDown() override;

 private:
  bool step() override;
  void release() override { m_songs.clear(); }
  void removeWritten() override;

  platform::Ref<QBAlbum> m_album;  ///< None where songs are given.
  SongFormat m_format;
  std::vector<platform::Ref<QBSong>> m_songs;
  std::size_t m_next = 0;
  std::vector<std::filesystem::path> m_written;
};

}  // namespace korvel
