// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace korvel {

class QBGroup;

/// The chords of the group drawn as a line of tablature.
std::string toMatrix(const QBGroup& group);

}  // namespace korvel
