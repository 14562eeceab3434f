// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "precise/Settings.h"
#include "workflow/hearing/ImportDetection.h"

namespace korvel::cli {

class Command;

/// Offers --sensitivity, --position, --frets and --capo, which fill the settings.
void addDetectionFlags(Command& command, precise::Settings& settings);
/// The same and --detection, without which they have no meaning when it is the classic one.
void addDetectionFlags(Command& command, ImportDetection& detection, precise::Settings& settings);

}  // namespace korvel::cli
