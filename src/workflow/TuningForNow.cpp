// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/TuningForNow.h"

#include "model/QBTabMgr.h"
#include "model/QBTuning.h"

namespace korvel {

TuningForNow::TuningForNow(QBTuning* tuning) : m_before(QBTabMgr::db().tuningForNow()) {
  if (tuning) QBTabMgr::db().setTuningForNow(tuning);
}

TuningForNow::~TuningForNow() { QBTabMgr::db().setTuningForNow(m_before); }

}  // namespace korvel
