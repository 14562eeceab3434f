// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/store/StoreCommands.h"

#include <string>

#include "cli/support/CliError.h"
#include "cli/support/Command.h"
#include "cli/support/Console.h"
#include "model/store/KorvelModel.h"
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
    throw CliError(store.file() +
                   ": the store is damaged; restore a backup of it by \"korvel-cli restore\"");
  Console::attached().printLine(store.file() + ": ok");
}

/// Under these names SQLite looks for changes of the store that were not finished.
void requireOtherThanJournals(const std::string& file) {
  for (const char* ending : {"-journal", "-wal", "-shm"})
    if (platform::isSameFile(file, QBTabMgr::storePath() + ending))
      throw CliError(file + ": that name belongs to the store itself; choose another");
}

void backupStore(const std::string& file) {
  requireOtherThanJournals(file);
  if (platform::isThere(file))
    throw CliError(file + ": there is a file of that name already; choose another");
  platform::StoreFile::backup(QBTabMgr::db().context().store(), file);
}

void restoreStore(const std::string& file) {
  const std::string path = QBTabMgr::storePath();
  const std::string kept = storeFile(path).restore(file);
  Console::attached().printLine(path + ": is " + file + " again" +
                                (kept.empty() ? "" : "; what was there is kept in " + kept));
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

  Command& restore = tool.command("restore", "Put a backup in the store's place");
  auto& source = restore.own<std::string>();
  restore.option("FILE", source, "The backup").required().shownAs("");
  restore.checkAtOnce();
  restore.uses(Store::none);
  restore.does([&source] { restoreStore(source); });
}

}  // namespace korvel::cli
