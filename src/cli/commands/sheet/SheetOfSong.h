// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `sheet`: prints the page of a song's chords, or writes it to files as text or ChordPro.
void addSheetOfSong(Command& tool);

}  // namespace korvel::cli
