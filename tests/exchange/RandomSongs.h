// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>

namespace korvel::test {

/// Makes songs on beats in a store of their own, the same at every run: all metres and changes of
/// them, pick-ups, tunings, capos, triplets, tones that ring on across others and bar lines, names.
/// Each is written into the folder, which is made where it is missing, as NUMBER.gp5, .gp and
/// .musicxml, and in .json is what the store says.
void writeRandomSongs(const std::filesystem::path& folder, int count);

}  // namespace korvel::test
