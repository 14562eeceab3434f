// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `list`: every song as ALBUM/TITLE, one a line.
void addListSongs(Command& tool);

}  // namespace korvel::cli
