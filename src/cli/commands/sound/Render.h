// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/support/OutputFile.h"
#include "cli/support/choices/SoundChoice.h"

namespace korvel {
class QBSong;
}

namespace korvel::cli {

class Command;

/// `render`: writes a song, or its loop once, to a WAV file as it is played, but faster.
void addRender(Command& tool);

/// The same for a song and a file that were chosen and checked.
void renderSong(QBSong& song, const OutputFile& file, const SoundOptions& sound);

}  // namespace korvel::cli
