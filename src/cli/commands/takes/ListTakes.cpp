// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/takes/ListTakes.h"

#include <cstdio>
#include <string>

#include "cli/commands/takes/DeleteTake.h"
#include "cli/commands/takes/ImportTake.h"
#include "cli/support/Command.h"
#include "cli/support/Console.h"
#include "cli/support/choices/TakeChoice.h"

namespace korvel::cli {
namespace {

void listTakes() {
  int number = 0;
  for (const Take& take : takesLeft()) {
    char begin[32], length[32];
    std::snprintf(begin, sizeof begin, "%3d  ", ++number);
    std::snprintf(length, sizeof length, ", %.1f s", take.seconds);
    Console::attached().printLine(begin + take.file.string() + length +
                                  (take.song ? ", heard live as " + pathOf(*take.song) : ""));
  }
}

}  // namespace

void addTakes(Command& tool) {
  Command& takes = tool.command("takes", "List what recordings left that did not end");
  takes.does(listTakes);
  addImportTake(takes);
  addDeleteTake(takes);
}

}  // namespace korvel::cli
