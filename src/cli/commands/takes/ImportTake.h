// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `takes import`: hears a take, stores the song, prints its tablature and removes the take.
void addImportTake(Command& takes);

}  // namespace korvel::cli
