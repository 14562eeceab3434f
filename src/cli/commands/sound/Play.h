// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `play`: plays a song, or its loop again and again, until it is over or Ctrl-C is pressed, and
/// tells the position meanwhile.
void addPlay(Command& tool);

}  // namespace korvel::cli
