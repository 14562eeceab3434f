// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "cli/support/OutputFile.h"
#include "cli/support/SoundChoice.h"

namespace korvel {
class QBSong;
}

namespace korvel::cli {

struct RenderOptions {
  std::string song;
  std::string file;
  SoundOptions sound;
  bool force = false;  ///< Replaces a file that is there already.
};

/// Writes a song, or its loop once, to a WAV file as it is played, but faster. Throws CliError.
void render(const RenderOptions& options);

/// The same for a song and a file that were chosen and checked.
void renderSong(QBSong& song, const OutputFile& file, const SoundOptions& sound);

}  // namespace korvel::cli
