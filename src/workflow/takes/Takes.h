// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <vector>

#include "platform/persistence/Ref.h"

namespace korvel {

class QBSong;

/// The sound of a recording that nobody could hear to its end, as the program was ended before.
struct Take {
  std::filesystem::path file;
  double seconds = 0;
  platform::Ref<QBSong> song;  ///< What was heard of it live; none when that was not stored.
};

/// Oldest first, without those that are being recorded.
std::vector<Take> takesLeft();

/// Removes a file that is a take, and no other. For who has stored all that there was to hear in
/// it.
void removeIfTake(const std::filesystem::path& file);

}  // namespace korvel
