// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `takes delete`: removes the file of a take that nobody is to hear.
void addDeleteTake(Command& takes);

}  // namespace korvel::cli
