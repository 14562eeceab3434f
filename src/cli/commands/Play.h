// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

#include "cli/support/SoundChoice.h"

namespace korvel::cli {

struct PlayOptions {
  std::string song;
  SoundOptions sound;
  std::string device;               ///< The system's default when empty.
  std::optional<std::string> file;  ///< A WAV file in the place of a device.
  bool force = false;               ///< Replaces that file when it is there already.
};

/// Plays a song, or its loop again and again, until it is over or Ctrl-C is pressed, and tells the
/// position meanwhile. Throws CliError when it cannot be played or the device goes away.
void play(const PlayOptions& options);

}  // namespace korvel::cli
