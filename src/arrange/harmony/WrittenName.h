// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace korvel {

class QBChord;

/// The name of a chord as it is written in the key of its song, where that has one: "Bbm7". ""
/// without a harmony.
std::string writtenName(const QBChord& chord);

}  // namespace korvel
