// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/sheet/CapoOfSong.h"

#include <cmath>
#include <string>
#include <vector>

#include "cli/support/CliError.h"
#include "cli/support/Command.h"
#include "cli/support/Console.h"
#include "cli/support/choices/SongChoice.h"
#include "model/songs/QBSong.h"
#include "tab/page/CapoTable.h"
#include "tab/page/PageOfSong.h"

namespace korvel::cli {
namespace {

std::string rightAligned(const std::string& text, std::size_t width) {
  return std::string(text.size() < width ? width - text.size() : 0, ' ') + text;
}

std::string capoLine(const CapoChoice& choice, bool isBest) {
  std::string line = isBest ? "* " : "  ";
  line += choice.fret == 0 ? "no capo" : "fret " + std::to_string(choice.fret) + ' ';
  line += rightAligned(std::to_string(std::lround(100 * choice.open)), 5) + " % open";
  line += "  " + std::to_string(choice.openNames) + " of " + std::to_string(choice.names);
  if (!choice.key.empty()) line += "  shapes of " + choice.key;
  return line;
}

void printCapos(const std::string& name) {
  QBSong& song = chooseSong(name);
  requireChords(song);
  const std::vector<CapoChoice> table = capoTable(pageSourceOf(song));
  if (table.front().names == 0)
    throw CliError(fullTitle(song) + ": no chord of it has a name; name its chords first");
  const int best = bestCapo(table);
  for (const CapoChoice& choice : table)
    Console::attached().printLine(capoLine(choice, choice.fret == best));
}

}  // namespace

void addCapoOfSong(Command& tool) {
  Command& command = tool.command(
      "capo", "Print how many chords of a song are open ones with a capo at each fret");
  auto& song = command.own<std::string>();
  needStoredSong(command, song);
  command.does([&song] { printCapos(song); });
}

}  // namespace korvel::cli
