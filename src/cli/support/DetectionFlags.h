// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "precise/Settings.h"
#include "workflow/hearing/ImportDetection.h"

namespace CLI {
class App;
}

namespace korvel::cli {

/// Offers --sensitivity, --position, --frets and --capo, which fill the settings.
void addDetectionFlags(CLI::App& command, precise::Settings& settings);
/// The same and --detection, without which they have no meaning when it is the classic one.
void addDetectionFlags(CLI::App& command, ImportDetection& detection, precise::Settings& settings);

}  // namespace korvel::cli
