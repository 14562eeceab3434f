// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "platform/files/Readers.h"

namespace korvel::platform {

/// Replaces or creates a file so that it holds either its old content or all of the new one,
/// whenever the process or the machine dies. A symbolic link stays and its target is replaced.
/// Throws FileError, also for a store, and then the old file is as it was.
void writeAtomically(const std::filesystem::path& file, std::string_view bytes);

/// Writes a file that does not exist yet, so that it appears complete or not at all. A file that
/// another process made in the meantime is left alone; false then. Throws FileError.
bool createAtomically(const std::filesystem::path& file, std::string_view bytes,
                      Readers readers = Readers::asUsual);

/// Whether there is something of that name. Throws FileError when that cannot be told, as where a
/// folder on the way may not be entered.
bool isThere(const std::filesystem::path& file);

/// Makes a folder and those on the way to it, where they are missing. Throws FileError.
void makeFolders(const std::filesystem::path& folder);
/// The same for what nobody else is to look into.
void makePrivateFolders(const std::filesystem::path& folder);

/// All bytes of a regular file. Throws FileError.
std::string readWholeFile(const std::filesystem::path& file);
/// The same of a file that need not be there; empty where `readWholeFile` throws.
std::string bytesOrNone(const std::filesystem::path& file);

/// Whether the file is a store of songs, which nothing that is written for other programs may
/// replace.
bool isStore(const std::filesystem::path& file);

/// Whether two names lead to one file, however they are spelled and whatever links lie on the way.
/// It need not be there.
bool isSameFile(const std::filesystem::path& a, const std::filesystem::path& b);

/// The folder that the running program was started from.
std::filesystem::path executableFolder();

/// Where the user's data of a program belongs: $XDG_DATA_HOME or ~/.local/share, and in it the
/// program's own folder. It need not exist yet. Throws FileError when the user has no home.
std::filesystem::path userDataFolder(std::string_view appName);

}  // namespace korvel::platform
