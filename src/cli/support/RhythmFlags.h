// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "analysis/HearingSettings.h"

namespace korvel::cli {

class Command;

/// Offers --grid: bars at the recording's tempo, or slices. help: what becomes of them.
void addGridFlag(Command& command, HearingSettings& settings, const std::string& help);
/// Offers --tempo, --metre, --swing, --straight and --finest, for what is not found rightly.
void addRhythmFlags(Command& command, HearingSettings& settings);

}  // namespace korvel::cli
