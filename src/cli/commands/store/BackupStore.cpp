// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/store/BackupStore.h"

#include <string>

#include "cli/support/CliError.h"
#include "cli/support/Command.h"
#include "model/store/QBTabMgr.h"
#include "platform/files/Files.h"
#include "platform/sqlite/StoreFile.h"

namespace korvel::cli {
namespace {

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

}  // namespace

void addBackupStore(Command& tool) {
  Command& command = tool.command("backup", "Copy the store to a new file");
  auto& file = command.own<std::string>();
  command.option("FILE", file, "The copy").required().shownAs("");
  command.checkAtOnce();
  command.uses(Store::existing);
  command.does([&file] { backupStore(file); });
}

}  // namespace korvel::cli
