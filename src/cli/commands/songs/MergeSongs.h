// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `merge`: adds the tones of another song, chord by chord, in a new song; saves, and prints the
/// title of that as ALBUM/TITLE.
void addMergeSongs(Command& tool);

}  // namespace korvel::cli
