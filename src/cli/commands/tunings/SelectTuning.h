// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `tunings select`: makes one the tuning of new songs.
void addSelectTuning(Command& tunings);

}  // namespace korvel::cli
