// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "cli/support/OutputFile.h"
#include "tab/paper/PrintedSong.h"

namespace korvel::cli {

class Command;

/// Files that something is to be drawn into.
struct PaperFlags {
  std::optional<std::string> pdf;
  std::optional<std::string> png;
  std::optional<std::string> svg;
  std::string paper;  ///< "a4" or "letter"; "" for the one that is used where the user lives.

  bool areGiven() const { return pdf || png || svg; }
};

/// Offers --pdf, --png, --svg and --paper. what: what is drawn, such as "Tablature".
void addPaperFlags(Command& command, PaperFlags& flags, const std::string& what);

/// A file with what is to be in it.
using FilledFile = std::pair<OutputFile, std::string>;

/// Draws the files that were asked for, by a program of its own that knows how, `korvel-paper`. All
/// of them can be written, and none is yet. Throws CliError, also when that program is not there.
std::vector<FilledFile> drawnFiles(const PaperFlags& flags, const PrintedSong& song, bool force);

}  // namespace korvel::cli
