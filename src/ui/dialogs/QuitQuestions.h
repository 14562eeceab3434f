// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <vector>

#include "workflow/hearing/ImportDesk.h"

class QWidget;

namespace korvel::ui {

// What the user is asked who quits while something is heard.

/// What is to become of it.
enum class Quitting : std::uint8_t {
  notNow,     ///< The program does not end.
  keepHeard,  ///< Songs keep what was heard of them.
  goOnLater,  ///< The next start hears them.
};

/// Whether a recording that goes on may end.
bool mayEndRecording(QWidget* window);
/// The imports are those that run; there is one at least.
Quitting askAboutImports(QWidget* window, const std::vector<ImportUnderWay>& imports);
/// Shows that imports come to their end, until none runs any more or the user would rather not see
/// that.
void waitForImports(QWidget* window);

}  // namespace korvel::ui
