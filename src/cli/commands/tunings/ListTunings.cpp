// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/tunings/ListTunings.h"

#include "cli/commands/tunings/AddTuning.h"
#include "cli/commands/tunings/DeleteTuning.h"
#include "cli/commands/tunings/EditTuning.h"
#include "cli/commands/tunings/RenameTuning.h"
#include "cli/commands/tunings/SelectTuning.h"
#include "cli/support/Command.h"
#include "cli/support/Console.h"
#include "model/instruments/QBTuning.h"
#include "model/store/QBTabMgr.h"
#include "workflow/library/TuningEdits.h"

namespace korvel::cli {
namespace {

void listTunings() {
  const QBTuning* active = QBTabMgr::db().selectedTuning();
  for (const auto& tuning : QBTabMgr::db().tunings())
    Console::attached().printLine((tuning == active ? "* " : "  ") + tuning->descr() + " (" +
                                  notesOf(*tuning) + ")");
}

}  // namespace

void addTunings(Command& tool) {
  Command& tunings = tool.command("tunings", "List the tunings, or change them");
  tunings.does(listTunings);
  addSelectTuning(tunings);
  addAddTuning(tunings);
  addEditTuning(tunings);
  addRenameTuning(tunings);
  addDeleteTuning(tunings);
}

}  // namespace korvel::cli
