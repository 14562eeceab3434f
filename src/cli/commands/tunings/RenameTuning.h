// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `tunings rename`: gives one another name.
void addRenameTuning(Command& tunings);

}  // namespace korvel::cli
