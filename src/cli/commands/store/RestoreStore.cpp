// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/store/RestoreStore.h"

#include <string>

#include "cli/support/Command.h"
#include "cli/support/Console.h"
#include "model/store/KorvelModel.h"
#include "model/store/QBTabMgr.h"
#include "platform/sqlite/StoreFile.h"

namespace korvel::cli {
namespace {

void restoreStore(const std::string& file) {
  const std::string path = QBTabMgr::storePath();
  const std::string kept = storeFile(path).restore(file);
  Console::attached().printLine(path + ": is " + file + " again" +
                                (kept.empty() ? "" : "; what was there is kept in " + kept));
}

}  // namespace

void addRestoreStore(Command& tool) {
  Command& command = tool.command("restore", "Put a backup in the store's place");
  auto& source = command.own<std::string>();
  command.option("FILE", source, "The backup").required().shownAs("");
  command.checkAtOnce();
  command.uses(Store::none);
  command.does([&source] { restoreStore(source); });
}

}  // namespace korvel::cli
