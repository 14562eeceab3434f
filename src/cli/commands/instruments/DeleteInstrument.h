// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `instruments delete`: deletes one, unless it is the only one.
void addDeleteInstrument(Command& instruments);

}  // namespace korvel::cli
