// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `retune`: gives a song another tuning and keeps its sound, on other places of the neck, or its
/// frets; saves, says how many notes the tuning has not, and prints the title as ALBUM/TITLE.
void addRetuneSong(Command& tool);

}  // namespace korvel::cli
