// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/exporting/ExportAlbumCommand.h"

#include <string_view>
#include <utility>

#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "platform/files/Files.h"

namespace korvel {
namespace {

namespace fs = std::filesystem;

fs::path createUnderAFreeName(const fs::path& folder, const std::string& stem,
                              std::string_view extension, std::string_view bytes) {
  fs::path file = folder / (stem + std::string(extension));
  for (int number = 2; !platform::createAtomically(file, bytes); ++number)
    file = folder / (stem + " " + std::to_string(number) + std::string(extension));
  return file;
}

}  // namespace

ExportAlbumCommand::ExportAlbumCommand(QBAlbum& album, SongFormat format, const fs::path& folder)
    : WritingCommand(platform::phrase("Job", "Album Export"), album.name(), folder),
      m_album(&album),
      m_format(format) {}

ExportAlbumCommand::ExportAlbumCommand(std::vector<platform::Ref<QBSong>> songs, SongFormat format,
                                       const fs::path& folder)
    : WritingCommand(platform::phrase("Job", "Song Export"), folder.filename(), folder),
      m_format(format),
      m_songs(std::move(songs)) {}

ExportAlbumCommand::~ExportAlbumCommand() = default;

void ExportAlbumCommand::prepare() {
  if (m_album) m_songs = m_album->songs().snapshot();
}

/// A song that was deleted since the beginning has no chords any more.
bool ExportAlbumCommand::step() {
  if (m_next == m_songs.size()) return false;
  QBSong& song = *m_songs[m_next++];
  if (!song.chords().empty())
    m_written.push_back(createUnderAFreeName(place(), fileNameOf(song.title()),
                                             extensionOf(m_format), songFile(song, m_format)));
  m_percent = kAll * static_cast<int>(m_next) / static_cast<int>(m_songs.size());
  return true;
}

void ExportAlbumCommand::tearDown() {
  release();
  m_percent = kAll;
  printOut({platform::phrase("Log", "%1: %2 songs exported."), place().string(), m_written.size()});
}

void ExportAlbumCommand::removeWritten() {
  std::error_code ignored;
  for (const fs::path& file : m_written) fs::remove(file, ignored);
}

}  // namespace korvel
