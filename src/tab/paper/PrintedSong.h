// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <variant>
#include <vector>

#include "tab/layout/TabLayout.h"
#include "tab/page/SongPage.h"
#include "tab/page/StaffGrips.h"

namespace korvel {

/// A tablature with what is drawn above it.
struct PrintedTablature {
  TabLayout layout;
  std::vector<StaffGrip> grips{};
  bool leftHanded = false;
};

/// What of a song is put on paper: its tablature, or the page of its chords. A value, which one
/// program can hand to another that draws it.
struct PrintedSong {
  std::string title;
  std::variant<PrintedTablature, SongPage> content;
};

/// With grips above the staff, if they are wanted.
PrintedSong printedTablature(QBSong& song, bool withGrips = false, bool leftHanded = false);
PrintedSong printedPage(SongPage page);

/// What a file is called that is one of several: of "song.png" the first is "song-1.png". An only
/// one keeps the name.
std::filesystem::path nameOfPart(const std::filesystem::path& file, std::size_t number,
                                 std::size_t count);

/// As JSON, for a reader of the same version.
std::string handedOver(const PrintedSong& song);
/// The other way round. Throws std::runtime_error for anything else.
PrintedSong takenOver(const std::string& json);

}  // namespace korvel
