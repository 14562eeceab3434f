// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/takes/Takes.h"

#include "model/songs/QBAlbum.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "recording/LiveTake.h"
#include "workflow/takes/TakeFiles.h"

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
  for (const fs::path& file : takeFilesLeft())
    takes.push_back({file, LiveTake::secondsOf(file), songOf(file)});
  return takes;
}

void removeIfTake(const fs::path& file) {
  std::error_code unknown;
  if (isTakeFile(file)) fs::remove(file, unknown);
}

}  // namespace korvel
