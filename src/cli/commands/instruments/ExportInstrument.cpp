// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/instruments/ExportInstrument.h"

#include <string>

#include "cli/support/Command.h"
#include "cli/support/OutputFile.h"
#include "cli/support/choices/InstrumentChoice.h"
#include "workflow/library/LibraryEdits.h"

namespace korvel::cli {
namespace {

struct ExportedInstrument {
  std::string name;
  std::string file;
  bool force = false;
};

void exportInstrument(const ExportedInstrument& options) {
  const OutputFile output(options.file, options.force);
  output.check();
  output.write(definitionOf(chooseInstrument(options.name)));
}

}  // namespace

void addExportInstrument(Command& instruments) {
  Command& command = instruments.command("export", "Write the definition file of an instrument");
  auto& options = command.own<ExportedInstrument>();
  needInstrument(command, options.name);
  command.option("FILE", options.file, "Definition file").required().shownAs("");
  command.flag("--force", options.force, "Replace a file that is there already");
  command.does([&options] { exportInstrument(options); });
}

}  // namespace korvel::cli
