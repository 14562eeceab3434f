// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/instruments/ListInstruments.h"

#include "cli/commands/instruments/CalibrateInstrument.h"
#include "cli/commands/instruments/DeleteInstrument.h"
#include "cli/commands/instruments/ExportInstrument.h"
#include "cli/commands/instruments/ImportInstrument.h"
#include "cli/commands/instruments/RenameInstrument.h"
#include "cli/commands/instruments/SelectInstrument.h"
#include "cli/support/Command.h"
#include "cli/support/Console.h"
#include "cli/support/choices/InstrumentChoice.h"
#include "model/instruments/QBInstrument.h"
#include "model/store/QBTabMgr.h"

namespace korvel::cli {
namespace {

void listInstruments() {
  for (const auto& instrument : QBTabMgr::db().instruments())
    Console::attached().print((instrument->active() ? "* " : "  ") + choiceOf(*instrument) + '\n');
}

}  // namespace

void addInstruments(Command& tool) {
  Command& instruments =
      tool.command("instruments", "List the instruments of the classic detection, or change them");
  instruments.does(listInstruments);
  addSelectInstrument(instruments);
  addImportInstrument(instruments);
  addExportInstrument(instruments);
  addRenameInstrument(instruments);
  addDeleteInstrument(instruments);
  addCalibrateInstrument(instruments);
}

}  // namespace korvel::cli
