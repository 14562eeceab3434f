// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `check`, `backup` and `restore`: a complete check of the store, a copy of it in a new file, and
/// such a copy in its place.
void addStoreCommands(Command& tool);

}  // namespace korvel::cli
