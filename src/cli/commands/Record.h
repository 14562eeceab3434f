// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

#include "precise/Settings.h"
#include "workflow/hearing/ImportDetection.h"

namespace korvel::cli {

struct RecordOptions {
  std::optional<double> seconds;      ///< Until Ctrl-C when not given.
  std::string device;                 ///< The system's default when empty.
  std::optional<std::string> file;    ///< A WAV file in the place of a device.
  bool fast = false;                  ///< Not at the file's own pace.
  std::optional<std::string> album;   ///< Made when missing; one of its own when not given.
  std::optional<std::string> title;   ///< Date and time when not given.
  std::optional<std::string> wav;     ///< Where the recording is kept as well.
  std::optional<std::string> tuning;  ///< For this recording only.
  ImportDetection detection = ImportDetection::precise;
  precise::Settings settings{};  ///< Of the precise detection.
};

/// Records a song, printing each chord as it is heard and the tablature at the end. Ctrl-C ends the
/// playing; while the recording is heard precisely it leaves it at the chords that were heard
/// first. Answers the exit status: a failure when the device was lost, too, though the song is
/// stored then.
int record(const RecordOptions& options);

}  // namespace korvel::cli
