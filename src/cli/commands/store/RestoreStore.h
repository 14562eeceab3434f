// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `restore`: a backup in the store's place.
void addRestoreStore(Command& tool);

}  // namespace korvel::cli
