// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `tunings delete`: deletes one that is not in use.
void addDeleteTuning(Command& tunings);

}  // namespace korvel::cli
