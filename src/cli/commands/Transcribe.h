// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

#include "precise/Settings.h"

namespace korvel::cli {

struct TranscribeOptions {
  std::string file;
  std::optional<std::string> json;      ///< File for the notes; stdout when no file is given.
  std::optional<std::string> midi;      ///< File for sequencers.
  std::optional<std::string> musicxml;  ///< File for notation programs.
  std::optional<double> tempo;          ///< Quarters a minute; assumed when not given.
  std::optional<std::string> tuning;    ///< Of the store; standard tuning when not given.
  bool force = false;                   ///< Replaces files that are there already.
  precise::Settings settings{};
};

/// Prints the notes of a recording as JSON, {"notes": [{"onset", "offset", "midi", "string",
/// "fret", "strength", "probability"}]}: times in seconds, strings from 0 for the lowest, null for
/// string and fret of a note that the guitar has not. Or writes them to files of several formats.
/// Stores nothing, and opens the store only when a tuning is named. Throws CliError.
void transcribe(const TranscribeOptions& options);

}  // namespace korvel::cli
