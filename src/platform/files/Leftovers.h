// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>

namespace korvel::platform {

// Files that are not complete yet have a name of their own, which nobody else gives a file:
// ".korvel-" and sixteen random digits. Whoever writes one holds it locked, so that what a process
// left that was killed can be told from what another one is at.

/// A new name beside a file. Of a few bytes, since the file's own may be as long as names can be.
std::filesystem::path temporaryBeside(const std::filesystem::path& file);

/// Removes what killed processes of this user have left in a folder. Looks once in each folder;
/// what cannot be removed stays.
void sweepLeftovers(const std::filesystem::path& folder);

}  // namespace korvel::platform
