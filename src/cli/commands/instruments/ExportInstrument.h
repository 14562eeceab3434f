// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `instruments export`: writes the definition file of one.
void addExportInstrument(Command& instruments);

}  // namespace korvel::cli
