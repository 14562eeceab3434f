// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `record`: records a song, printing each chord as it is heard and the tablature at the end.
/// Ctrl-C ends the playing; while the recording is heard precisely it leaves it at the chords that
/// were heard first.
void addRecord(Command& tool);

}  // namespace korvel::cli
