// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `instruments`: lists them; its commands select, import, export and calibrate one. An instrument
/// is chosen by its name; NAME#2 is the second of that name.
void addInstruments(Command& tool);

}  // namespace korvel::cli
