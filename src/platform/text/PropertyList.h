// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <vector>

namespace korvel::platform {

/// The numbers of an XML property list that holds one array of integers and nothing else:
/// <plist><array><integer>-3</integer>...</array></plist>. None for a file that cannot be read, is
/// not well formed or holds anything else. Declared entities and external files are not followed.
std::optional<std::vector<std::int64_t>> readIntegers(const std::filesystem::path& file);

}  // namespace korvel::platform
