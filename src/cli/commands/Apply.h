// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace korvel::cli {

struct ApplyOptions {
  std::string song;                   ///< Not with `all`.
  std::vector<std::string> commands;  ///< Names of the song node's commands.
  std::optional<std::string> album;   ///< Where the song is, or whose songs are all meant.
  bool all = false;                   ///< Every song of the album.
};

/// Runs the commands in turn, each on the song that the one before made active. Titles of the new
/// songs go to stdout. A command that fails ends the run for its song; what was made before stays.
/// Answers the exit status.
int applyCommands(const ApplyOptions& options);

/// Prints the menu of a song as a tree: titles with the names of their commands.
void listCommands();

}  // namespace korvel::cli
