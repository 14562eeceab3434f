// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <filesystem>

#include "platform/loop/Slices.h"

namespace korvel {

class QBTabMgr;
class SongRecording;

// Copies of recordings as FLAC files, in a folder beside the store that only its user may enter.
// They are named by the recording's content, and so there is one for all songs that share it.

/// Where the copy of a recording is, or would be; empty for one without a hash.
std::filesystem::path keptSoundOf(const SongRecording& recording);

/// Copies the sound of a file that has the recording's content, unless there is a copy already. The
/// recording is asked before the first step ends, and may go afterwards.
/// What the format cannot hold, and a full disk, throws FileError and leaves nothing.
platform::Slices keepingSound(const SongRecording& recording, std::filesystem::path file);

/// About how many bytes the copy of a file will have; 0 when that cannot be told.
std::int64_t sizeOfKept(const std::filesystem::path& file);

/// Removes the copies that no song of the store was heard in. Never throws.
void sweepKeptSounds(const QBTabMgr& db);

}  // namespace korvel
