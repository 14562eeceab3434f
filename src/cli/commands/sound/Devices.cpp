// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/sound/Devices.h"

#include "cli/support/Command.h"
#include "cli/support/Console.h"
#include "platform/sound/AudioSystem.h"

namespace korvel::cli {
namespace {

std::string listed(const std::string& heading, const std::vector<std::string>& names) {
  std::string text = heading + '\n';
  for (const std::string& name : names) text += "  " + name + '\n';
  return text;
}

void listDevices() {
  platform::AudioSystem& system = platform::AudioSystem::main();
  const std::string outputs = listed("Outputs", system.outputs());
  Console::attached().print(outputs + listed("Inputs", system.inputs()));
}

}  // namespace

void addDevices(Command& tool) {
  Command& command =
      tool.command("devices", "List the devices that sound is played and recorded on");
  command.checkAtOnce();
  command.uses(Store::none);
  command.does(listDevices);
}

}  // namespace korvel::cli
