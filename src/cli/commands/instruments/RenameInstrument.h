// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `instruments rename`: gives one another name.
void addRenameInstrument(Command& instruments);

}  // namespace korvel::cli
