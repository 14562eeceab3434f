// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `instruments`: lists them, with a star at the active one; its commands select, import, export,
/// rename, delete and calibrate one.
void addInstruments(Command& tool);

}  // namespace korvel::cli
