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

Recordings recordingsOfSize(const QBTabMgr& db, std::int64_t size) {
  Recordings found;
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

QBSong* songHeardIn(const QBTabMgr& db, const std::string& file) {
  std::error_code unknown;
  const auto size = std::filesystem::file_size(file, unknown);
  if (unknown) return nullptr;
  const Recordings candidates = recordingsOfSize(db, static_cast<std::int64_t>(size));
  if (candidates.empty()) return nullptr;
  const std::string content = contentOf(file);
  for (const SongRecording* recording : candidates)
    if (!content.empty() && recording->hash() == content) return firstInLibrary(*recording);
  return nullptr;
}

}  // namespace korvel
