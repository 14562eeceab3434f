// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `devices`: prints the names of the outputs and inputs of sound.
void addDevices(Command& tool);

}  // namespace korvel::cli
