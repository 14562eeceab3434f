// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "platform/loop/Slices.h"

namespace korvel {

// What files have in them, by its hash (`platform/media/ContentHash.h`). Each is read once, and
// known for as long as it keeps its size and the time of its last change. Main thread.

/// Empty for a file that cannot be read, which is tried again. Reads what is not known yet: an
/// hour of sound takes a second or more.
std::string contentOf(const std::filesystem::path& file);

/// None of a file that was not read yet.
std::optional<std::string> knownContent(const std::filesystem::path& file);

/// Whether it is known, or so short that reading it takes no time that a user would notice.
bool isContentAtHand(const std::filesystem::path& file);

/// Has another thread read it, unless it is known.
void readAhead(const std::filesystem::path& file);

/// The same, over when it has been read. To be given up at any time.
platform::Slices readingContent(std::filesystem::path file);

}  // namespace korvel
