// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/support/TuningChoice.h"

#include "cli/support/CliError.h"
#include "model/instruments/QBTuning.h"
#include "model/store/QBTabMgr.h"

namespace korvel::cli {

QBTuning& chooseTuning(const std::string& name) {
  std::string known;
  for (const auto& tuning : QBTabMgr::db().tunings()) {
    if (tuning->descr() == name) return *tuning;
    known += (known.empty() ? "\"" : ", \"") + tuning->descr() + '"';
  }
  throw CliError("no tuning \"" + name + "\"; there is " + known);
}

}  // namespace korvel::cli
