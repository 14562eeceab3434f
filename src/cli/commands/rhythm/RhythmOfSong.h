// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `rhythm`: reads the rhythm of a song that was heard anew, as it is told to, without the sound;
/// saves. Prints how it is read then, and how else it may be read.
void addRhythmOfSong(Command& tool);

}  // namespace korvel::cli
