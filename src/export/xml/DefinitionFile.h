// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace korvel {

class QBInstrument;

/// The definition file of an instrument with all that its reader asks for. The instrument's own
/// toXML leaves out the amplitudes and offsets of overtones, without which none is read.
/// std::invalid_argument for a name that the file cannot carry.
std::string definitionText(QBInstrument& instrument);

}  // namespace korvel
