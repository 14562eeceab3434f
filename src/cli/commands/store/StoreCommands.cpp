// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/store/StoreCommands.h"

#include <string>

#include "cli/support/CliError.h"
#include "cli/support/Command.h"
#include "cli/support/Console.h"
#include "model/store/QBTabMgr.h"
#include "platform/files/Files.h"
#include "platform/sqlite/StoreFile.h"

namespace korvel::cli {
namespace {

void checkStore() {
  platform::SqliteDatabase& store = QBTabMgr::db().context().store();
  const auto problems = platform::StoreFile::problems(store);
  for (const std::string& problem : problems) Console::attached().printLine(problem);
  if (!problems.empty())
    throw CliError(store.file() + ": the store is damaged; restore a backup of it");
  Console::attached().printLine(store.file() + ": ok");
}

void backupStore(const std::string& file) {
  if (platform::isThere(file))
    throw CliError(file + ": there is a file of that name already; choose another");
  platform::StoreFile::backup(QBTabMgr::db().context().store(), file);
}

}  // namespace

void addStoreCommands(Command& tool) {
  Command& check = tool.command("check", "Check that the store is sound");
  check.checkAtOnce();
  check.uses(Store::existing);
  check.does(checkStore);

  Command& backup = tool.command("backup", "Copy the store to a new file");
  auto& file = backup.own<std::string>();
  backup.option("FILE", file, "The copy").required().shownAs("");
  backup.checkAtOnce();
  backup.uses(Store::existing);
  backup.does([&file] { backupStore(file); });
}

}  // namespace korvel::cli
