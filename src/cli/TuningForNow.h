// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace korvel {
class QBTuning;
}

namespace korvel::cli {

/// Lets a tuning stand in for the active one until the end of the scope, since detection, notes and
/// drawing follow the active one; without a tuning nothing changes. Nothing of it is stored.
class TuningForNow {
 public:
  explicit TuningForNow(QBTuning* tuning);
  TuningForNow(const TuningForNow&) = delete;
  TuningForNow& operator=(const TuningForNow&) = delete;
  ~TuningForNow();
};

/// The tuning of that name. Throws CliError, which lists the tunings, when there is none.
QBTuning& chooseTuning(const std::string& name);

}  // namespace korvel::cli
