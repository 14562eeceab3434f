// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/TuningForNow.h"

#include "model/QBTabMgr.h"

namespace korvel::cli {

TuningForNow::TuningForNow(QBTuning* tuning) { QBTabMgr::db().setTuningForNow(tuning); }

TuningForNow::~TuningForNow() { QBTabMgr::db().setTuningForNow(nullptr); }

}  // namespace korvel::cli
