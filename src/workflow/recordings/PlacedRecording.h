// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <filesystem>

#include "platform/loop/Slices.h"

namespace korvel {

class QBSong;

/// The recording of a song lies there from now on, whatever its name. Who moves one moves others
/// with it: recordings of the library that are not where they were, in the folder of this one or
/// below it, and lie under their names in the new folder with their content, are taken as well.
/// One undoable action, "Find Recording", which is saved. Answers how many others were found. Reads
/// all these files, as far as they are not known. Throws EditRefused when the song has no
/// recording, or the file is another one.
std::size_t placeRecording(QBSong& song, const std::filesystem::path& file);

/// Reads what that has to know, a little at a time; nothing for a file that cannot be the recording
/// by its size. The song has to stay until the first step.
platform::Slices readingPlaced(QBSong& song, std::filesystem::path file);

}  // namespace korvel
