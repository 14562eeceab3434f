// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>

namespace korvel {

/// Throws EditRefused, with the line where it breaks, for an instrument definition file
/// that is not whole. `QBMusicXMLParser` takes what it understands of any file, and an instrument
/// of half a file would confirm tones wrongly without a word.
void requireWholeDefinition(const std::filesystem::path& file);

}  // namespace korvel
