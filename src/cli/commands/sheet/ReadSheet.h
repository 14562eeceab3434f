// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `chordpro`: makes songs of ChordPro files, saves them, and prints the title of each as
/// ALBUM/TITLE.
void addReadSheet(Command& tool);

}  // namespace korvel::cli
