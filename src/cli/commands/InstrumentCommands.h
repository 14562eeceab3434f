// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace korvel::cli {

// An instrument is chosen by its name; NAME#2 is the second of that name. Throw CliError, and
// EditRefused.

/// The instruments, the active one marked with a star.
void listInstruments();
/// The one that confirms tones from now on.
void selectInstrumentNamed(const std::string& name);
/// From a definition file; it becomes the selected one.
void importInstrumentFile(const std::string& file);
/// To a definition file, which may replace one only if that is allowed.
void exportInstrument(const std::string& name, const std::string& file, bool replace);
/// Makes an instrument of a recording of single notes, and prints which were heard.
void calibrateInstrument(const std::string& file, const std::string& name);

}  // namespace korvel::cli
