// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Devices.h"

#include "cli/Console.h"
#include "platform/AudioSystem.h"

namespace korvel::cli {
namespace {

std::string listed(const std::string& heading, const std::vector<std::string>& names) {
  std::string text = heading + '\n';
  for (const std::string& name : names) text += "  " + name + '\n';
  return text;
}

}  // namespace

void listDevices() {
  platform::AudioSystem& system = platform::AudioSystem::main();
  const std::string outputs = listed("Outputs", system.outputs());
  Console::attached().print(outputs + listed("Inputs", system.inputs()));
}

}  // namespace korvel::cli
