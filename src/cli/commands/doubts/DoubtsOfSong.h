// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `doubts`: prints where a song may be wrong, a line for each note, or all that was heard in its
/// recording. Notes have numbers, which stay the same while the song is corrected.
void addDoubtsOfSong(Command& tool);

}  // namespace korvel::cli
