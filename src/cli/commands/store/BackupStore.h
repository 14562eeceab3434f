// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `backup`: a copy of the store in a new file.
void addBackupStore(Command& tool);

}  // namespace korvel::cli
