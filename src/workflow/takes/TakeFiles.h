// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <vector>

namespace korvel {

// The files of takes, in a folder of the user's data.

/// One for a new take, named by date and time, that is not there yet.
std::filesystem::path freeTakeFile();
/// Of recordings that did not end, because the program was killed; oldest first.
std::vector<std::filesystem::path> takeFilesLeft();
/// Whether the file stands among them.
bool isTakeFile(const std::filesystem::path& file);

}  // namespace korvel
