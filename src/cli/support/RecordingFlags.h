// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/deck/DecodedSound.h"
#include "workflow/playing/PlayedSound.h"

namespace korvel {
class QBSong;
}

namespace korvel::cli {

class Command;

/// Whether and how the recording of a song is heard.
struct RecordingOptions {
  bool recording = false;
  std::optional<double> mix;
  bool apart = false;
  double halfTones = 0;
  std::optional<std::string> between;
  std::optional<platform::SpeedRamp> ramp;

  PlayedSound played() const;
};

/// Offers --recording, --mix, --apart and --transpose.
void addRecordingFlags(Command& command, RecordingOptions& options);
/// Offers --ramp and --between, for who plays a loop again and again.
void addRoundFlags(Command& command, RecordingOptions& options);

/// The recording of a song. Throws CliError when it is not to be had.
std::shared_ptr<const platform::DecodedSound> requireRecording(QBSong& song);

}  // namespace korvel::cli
