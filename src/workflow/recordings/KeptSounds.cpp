// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/recordings/KeptSounds.h"

#include <algorithm>
#include <set>
#include <string>
#include <system_error>

#include "model/recorded/SongRecording.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "platform/deck/FlacCopy.h"
#include "platform/files/Files.h"
#include "platform/media/MediaAsset.h"

namespace korvel {
namespace {

namespace fs = std::filesystem;

constexpr const char* kFolderEnding = "-recordings";
constexpr const char* kFileEnding = ".flac";
/// A guitar's FLAC file has some three fifths of the bytes of its samples.
constexpr double kShareOfSamples = 0.6;
/// What a compressed file has of its samples, roughly.
constexpr double kShareOfCompressed = 0.1;

fs::path folderOfSounds() { return QBTabMgr::storePath() + kFolderEnding; }

/// Digits only, so that no name in a store leads elsewhere.
bool isHash(const std::string& hash) {
  return !hash.empty() && hash.find_first_not_of("0123456789abcdef") == std::string::npos;
}

std::set<fs::path> usedSounds(const QBTabMgr& db) {
  std::set<fs::path> used;
  for (const auto& album : db.albums())
    for (const QBSong* song : album->songs())
      if (const SongRecording* recording = song->recording())
        used.insert({keptSoundOf(*recording), recording->path()});
  return used;
}

}  // namespace

fs::path keptSoundOf(const SongRecording& recording) {
  return isHash(recording.hash()) ? folderOfSounds() / (recording.hash() + kFileEnding)
                                  : fs::path();
}

platform::Slices keepingSound(const SongRecording& recording, fs::path file) {
  const fs::path kept = keptSoundOf(recording);
  if (kept.empty() || platform::isThere(kept)) co_return;
  platform::makePrivateFolders(kept.parent_path());
  const double seconds = recording.seconds();
  platform::FlacCopy copy(file, kept);
  while (copy.step()) co_yield seconds > 0 ? std::min(copy.seconds() / seconds, 1.0) : 0;
  copy.finish();
}

std::int64_t sizeOfKept(const fs::path& file) {
  std::error_code unknown;
  const auto bytes = static_cast<double>(fs::file_size(file, unknown));
  const platform::MediaAsset asset(file);
  const platform::MediaTrack* track = asset.firstSound();
  if (unknown || !track) return 0;
  if (track->codec == "flac") return static_cast<std::int64_t>(bytes);
  const bool isPcm = track->codec.starts_with("pcm_");
  return static_cast<std::int64_t>(kShareOfSamples * (isPcm ? bytes : bytes / kShareOfCompressed));
}

void sweepKeptSounds(const QBTabMgr& db) {
  std::error_code failed;
  const std::set<fs::path> used = usedSounds(db);
  for (const auto& entry : fs::directory_iterator(folderOfSounds(), failed)) {
    const fs::path& file = entry.path();
    if (file.extension() == kFileEnding && isHash(file.stem()) && !used.contains(file))
      fs::remove(file, failed);
  }
}

}  // namespace korvel
