// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/hearing/KnownRecordings.h"

#include <filesystem>
#include <vector>

#include "model/recorded/SongRecording.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "workflow/recordings/FileContent.h"

namespace korvel {
namespace {

using Recordings = std::vector<const SongRecording*>;

Recordings recordingsOfSizeOf(const std::string& file, const QBTabMgr& db) {
  std::error_code unknown;
  const auto size = static_cast<std::int64_t>(std::filesystem::file_size(file, unknown));
  Recordings found;
  if (unknown) return found;
  for (const auto& album : db.albums())
    for (const QBSong* song : album->songs())
      if (const SongRecording* recording = song->recording();
          recording && recording->size() == size)
        found.push_back(recording);
  return found;
}

/// Others were derived from it later.
QBSong* firstInLibrary(const SongRecording& recording) {
  for (QBSong* song : recording.songs())
    if (song->album()) return song;
  return nullptr;
}

}  // namespace

bool mayBeHeardIn(const QBTabMgr& db, const std::string& file) {
  return !recordingsOfSizeOf(file, db).empty();
}

QBSong* songHeardIn(const QBTabMgr& db, const std::string& file) {
  const Recordings candidates = recordingsOfSizeOf(file, db);
  if (candidates.empty()) return nullptr;
  const std::string content = contentOf(file);
  for (const SongRecording* recording : candidates)
    if (!content.empty() && recording->hash() == content) return firstInLibrary(*recording);
  return nullptr;
}

}  // namespace korvel
