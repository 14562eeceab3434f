// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `name`: names the chords of a passage, or of all in which the same notes sound; saves, and
/// prints the title of the song as ALBUM/TITLE. Without a name prints what explains the passage
/// best, each with its weight.
void addNameChords(Command& tool);

}  // namespace korvel::cli
