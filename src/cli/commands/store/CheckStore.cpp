// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/store/CheckStore.h"

#include <string>

#include "cli/support/CliError.h"
#include "cli/support/Command.h"
#include "cli/support/Console.h"
#include "model/store/QBTabMgr.h"
#include "platform/sqlite/StoreFile.h"

namespace korvel::cli {
namespace {

void checkStore() {
  platform::SqliteDatabase& store = QBTabMgr::db().context().store();
  const auto problems = platform::StoreFile::problems(store);
  for (const std::string& problem : problems) Console::attached().printLine(problem);
  if (!problems.empty())
    throw CliError(store.file() +
                   ": the store is damaged; restore a backup of it by \"korvel-cli restore\"");
  Console::attached().printLine(store.file() + ": ok");
}

}  // namespace

void addCheckStore(Command& tool) {
  Command& command = tool.command("check", "Check that the store is sound");
  command.checkAtOnce();
  command.uses(Store::existing);
  command.does(checkStore);
}

}  // namespace korvel::cli
