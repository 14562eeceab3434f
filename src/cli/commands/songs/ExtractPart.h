// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `extract`: copies the chords between two, named by their positions from 1, to a new song; saves,
/// and prints the title of that as ALBUM/TITLE.
void addExtractPart(Command& tool);

}  // namespace korvel::cli
