// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "export/score/Score.h"

namespace korvel {

class QBSong;

/// What a song can be written as for other programs.
enum class SongFormat {
  text,
  musicXml,
  compressedMusicXml,
  guitarPro5,
  guitarPro7,
  alphaTex,
  abc,
  midi
};

/// ".txt" and so on.
std::string_view extensionOf(SongFormat format);

/// A title as the name of a file, without ending: a title may hold what separates folders, line
/// breaks, and more than a file system takes.
std::string fileNameOf(const std::string& title);

/// The bytes of a file of the song, in the tuning that it was made in. Score and MIDI follow the
/// song's measures unless a meter is given. EditRefused for a song without chords.
std::string songFile(QBSong& song, SongFormat format,
                     const std::optional<Meter>& meter = std::nullopt);

/// Replaces the file as a whole, and logs its path. Throws EditRefused, or platform::FileError, and
/// leaves the file as it was then.
void exportSong(QBSong& song, SongFormat format, const std::filesystem::path& file,
                const std::optional<Meter>& meter = std::nullopt);

}  // namespace korvel
