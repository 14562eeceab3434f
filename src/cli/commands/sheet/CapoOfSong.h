// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `capo`: prints what a capo at each fret does for the chords of a song, a line for each.
void addCapoOfSong(Command& tool);

}  // namespace korvel::cli
