// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/takes/DeleteTake.h"

#include "cli/support/CliError.h"
#include "cli/support/Command.h"
#include "cli/support/Console.h"
#include "cli/support/choices/TakeChoice.h"
#include "platform/files/Files.h"

namespace korvel::cli {
namespace {

void deleteTake(int number) {
  const Take take = chooseTake(number);
  removeIfTake(take.file);
  if (platform::isThere(take.file)) throw CliError(take.file.string() + ": cannot be deleted");
  Console::attached().note(take.file.string() + ": deleted");
}

}  // namespace

void addDeleteTake(Command& takes) {
  Command& command = takes.command("delete", "Delete a take without hearing it");
  auto& number = command.own<int>();
  needTake(command, number);
  command.does([&number] { deleteTake(number); });
}

}  // namespace korvel::cli
