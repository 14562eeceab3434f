// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `instruments import`: adds one from its definition file, selects it and prints its name.
void addImportInstrument(Command& instruments);

}  // namespace korvel::cli
