// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `tunings edit`: gives one that is not in use other strings.
void addEditTuning(Command& tunings);

}  // namespace korvel::cli
