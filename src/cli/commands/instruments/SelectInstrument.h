// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `instruments select`: makes one the instrument that confirms tones.
void addSelectInstrument(Command& instruments);

}  // namespace korvel::cli
