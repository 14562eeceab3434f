// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `check` and `backup`: a complete check of the store, and a copy of it in a new file.
void addStoreCommands(Command& tool);

}  // namespace korvel::cli
