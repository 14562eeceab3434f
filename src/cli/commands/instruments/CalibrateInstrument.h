// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `instruments calibrate`: adds one from a recording of single notes, selects it, and prints the
/// notes that were heard.
void addCalibrateInstrument(Command& instruments);

}  // namespace korvel::cli
