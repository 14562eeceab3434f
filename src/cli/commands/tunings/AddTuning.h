// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `tunings add`: adds one that is known, or one of six notes, and prints its name.
void addAddTuning(Command& tunings);

}  // namespace korvel::cli
