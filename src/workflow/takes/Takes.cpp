// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/takes/Takes.h"

#include "model/songs/QBAlbum.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "recording/LiveTake.h"
#include "workflow/takes/LiveRecording.h"

namespace korvel {
namespace {

namespace fs = std::filesystem;

QBSong* songOf(const fs::path& take) {
  for (const auto& album : QBTabMgr::db().albums())
    for (QBSong* song : album->songs())
      if (!song->isWhole() && song->unheard() == take) return song;
  return nullptr;
}

}  // namespace

std::vector<Take> takesLeft() {
  std::vector<Take> takes;
  for (const fs::path& file : LiveRecording::takesLeftBehind())
    takes.push_back({file, LiveTake::secondsOf(file), songOf(file)});
  return takes;
}

void removeIfTake(const fs::path& file) {
  std::error_code unknown;
  const fs::path folder = fs::weakly_canonical(LiveRecording::freeTake().parent_path(), unknown);
  if (fs::weakly_canonical(file, unknown).parent_path() == folder) fs::remove(file, unknown);
}

}  // namespace korvel
