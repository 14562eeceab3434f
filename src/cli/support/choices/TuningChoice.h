// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "workflow/library/TuningEdits.h"

namespace korvel {
class QBTuning;
}

namespace korvel::cli {

class Command;

/// In place of the name of a tuning: the one that a recording is clearly played in.
inline constexpr std::string_view kFoundTuning = "auto";
inline bool isNamedTuning(const std::optional<std::string>& given) {
  return given && *given != kFoundTuning;
}

/// Has the command take the name of a tuning, TUNING, which must be given.
void needTuning(Command& command, std::string& name);
/// The tuning of that name. Throws CliError, which lists the tunings, when there is none.
QBTuning& chooseTuning(const std::string& name);
/// The same, but a known one, such as "DADGAD", is made where the store has none of its name.
QBTuning& tuningToPlayIn(const std::string& name);
/// Its open strings, for which nothing is made.
OpenPitches stringsOfTuning(const std::string& tuning);
/// notes: six, such as "D2", the lowest string first. Throws CliError for a word that is no note.
OpenPitches pitchesNamed(const std::vector<std::string>& notes);

}  // namespace korvel::cli
