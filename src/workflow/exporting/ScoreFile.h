// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "export/score/Score.h"

namespace korvel {

/// A score as a MusicXML document that names this program and today's date.
std::string musicXmlOf(Score score);

}  // namespace korvel
