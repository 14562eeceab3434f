// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `correct`: takes, drops or confirms notes of a song by the numbers that `doubts` prints, or
/// decides about all of them anew; saves.
void addCorrectSong(Command& tool);

}  // namespace korvel::cli
