// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/exporting/ExportAlbumCommand.h"

#include <string_view>

#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "platform/files/FileError.h"
#include "platform/files/Files.h"

namespace korvel {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kAll = 100;

fs::path createUnderAFreeName(const fs::path& folder, const std::string& stem,
                              std::string_view extension, std::string_view bytes) {
  fs::path file = folder / (stem + std::string(extension));
  for (int number = 2; !platform::createAtomically(file, bytes); ++number)
    file = folder / (stem + " " + std::to_string(number) + std::string(extension));
  return file;
}

}  // namespace

ExportAlbumCommand::ExportAlbumCommand(QBAlbum& album, SongFormat format, fs::path folder)
    : m_album(&album), m_format(format), m_folder(std::move(folder)) {
  m_type = "Album Export";
  m_name = ": " + album.name();
}

ExportAlbumCommand::~ExportAlbumCommand() = default;

void ExportAlbumCommand::prepare() { m_songs = m_album->songs().snapshot(); }

void ExportAlbumCommand::execute() {
  while (step()) continue;
}

void ExportAlbumCommand::nextStep() {
  try {
    if (!step()) stop();
  } catch (const platform::FileError& problem) {
    abandonSteps();
    m_songs.clear();
    printOut(problem.what());
  }
}

/// A song that was deleted since the beginning has no chords any more.
bool ExportAlbumCommand::step() {
  if (m_next == m_songs.size()) return false;
  QBSong& song = *m_songs[m_next++];
  if (!song.chords().empty())
    m_written.push_back(createUnderAFreeName(m_folder, fileNameOf(song.title()),
                                             extensionOf(m_format), songFile(song, m_format)));
  m_percent = static_cast<int>(kAll * m_next / m_songs.size());
  return true;
}

void ExportAlbumCommand::tearDown() {
  m_songs.clear();
  m_percent = kAll;
  printOut(m_folder.string() + ": " + std::to_string(m_written.size()) + " songs exported.");
}

void ExportAlbumCommand::cancelAndDrop() {
  abandonSteps();
  m_songs.clear();
  std::error_code ignored;
  for (const fs::path& file : m_written) fs::remove(file, ignored);
  printOut(m_folder.string() + ": cancelled, nothing was written.");
}

}  // namespace korvel
