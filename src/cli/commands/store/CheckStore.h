// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `check`: a complete check of the store.
void addCheckStore(Command& tool);

}  // namespace korvel::cli
