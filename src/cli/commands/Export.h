// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

namespace korvel::cli {

struct ExportOptions {
  std::string song;
  std::optional<std::string> txt;       ///< File for the text tablature.
  std::optional<std::string> musicxml;  ///< File for the score.
  std::optional<std::string> midi;      ///< File for sequencers.
  std::optional<std::string> wav;       ///< File that the song sounds from.
  std::optional<std::string> metric;    ///< Such as "3/4"; the song's own when not given.
  bool force = false;                   ///< Replaces files that are there already.
};

/// Writes a song to files. Makes all of them before it writes the first. Throws CliError.
void exportSong(const ExportOptions& options);

}  // namespace korvel::cli
