// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// "korvel-cli takes": what recordings have left that did not end.
void addTakes(Command& tool);

}  // namespace korvel::cli
