// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `takes`: lists what recordings have left that did not end; its commands import and delete one.
void addTakes(Command& tool);

}  // namespace korvel::cli
