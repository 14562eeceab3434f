// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/arranging/StrumSong.h"

#include <algorithm>
#include <string>

#include "arrange/strumming/StrumPatterns.h"
#include "cli/support/Command.h"
#include "cli/support/Console.h"
#include "cli/support/DetectionFlags.h"
#include "cli/support/UsageError.h"
#include "cli/support/choices/SongChoice.h"
#include "model/songs/QBSong.h"
#include "workflow/arranging/guided/PatternStrummed.h"

namespace korvel::cli {
namespace {

constexpr std::size_t kWidthOfNames = 12;
constexpr std::size_t kWidthOfBars = 20;

struct StrumOptions {
  std::string song;
  const StrumPattern* pattern = &strumOnBeats();
  bool list = false;
};

std::string padded(std::string_view text, std::size_t width) {
  return std::string(text) + std::string(width - std::min(width - 1, text.size()), ' ');
}

/// Each with its bars of four and of three quarters and of six eighths.
void listPatterns() {
  for (const StrumPattern& each : strumPatterns()) {
    std::string line = padded(each.name, kWidthOfNames);
    if (!each.bar(4, 4).empty())
      line += padded(each.bar(4, 4), kWidthOfBars) + padded(each.bar(3, 4), kWidthOfBars) +
              padded(each.bar(6, 8), kWidthOfBars);
    Console::attached().printLine(line + std::string(each.title.english));
  }
}

void strum(const StrumOptions& options) {
  QBSong& song = chooseSong(options.song);
  requireChords(song);
  printTitle(strummedBy(*options.pattern).accept(song));
}

}  // namespace

void addStrumSong(Command& tool) {
  Command& command = tool.command("strum", "Strum the chords of a song in a pattern");
  auto& options = command.own<StrumOptions>();
  command.option("SONG", options.song, "Title, or ALBUM/TITLE").shownAs("[SONG]");
  command
      .option(
          "--pattern",
          [&options](const std::string& name) {
            options.pattern = &strumPatternOf("--pattern", name);
          },
          "How it is strummed (default: beats)")
      .shownAs("NAME");
  command.flag("--list", options.list,
               "Print the patterns: D all strings down, d and u the upper ones, b and a basses");
  command.checkLast([&] {
    if (!options.list && options.song.empty()) throw UsageError("strum", "takes a song");
    command.uses(options.list ? Store::none : Store::existing);
  });
  command.does([&options] { options.list ? listPatterns() : strum(options); });
}

}  // namespace korvel::cli
