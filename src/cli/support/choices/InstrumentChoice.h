// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace korvel {
class QBInstrument;
}

namespace korvel::cli {

class Command;

/// Has the command take the name of an instrument, INSTRUMENT, which must be given.
void needInstrument(Command& command, std::string& name);
/// Of that name; NAME#2 is the second of that name. Throws CliError, which lists the instruments,
/// when there is none.
QBInstrument& chooseInstrument(const std::string& name);
/// As it is chosen: with a number where others before it have the same name.
std::string choiceOf(const QBInstrument& instrument);

}  // namespace korvel::cli
