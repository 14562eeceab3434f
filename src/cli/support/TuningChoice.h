// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace korvel {
class QBTuning;
}

namespace korvel::cli {

/// The tuning of that name. Throws CliError, which lists the tunings, when there is none.
QBTuning& chooseTuning(const std::string& name);

}  // namespace korvel::cli
