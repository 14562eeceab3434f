// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/session/TuningForNow.h"

#include "model/instruments/QBTuning.h"
#include "model/store/QBTabMgr.h"

namespace korvel {

TuningForNow::TuningForNow(QBTuning* tuning) : m_before(QBTabMgr::db().tuningForNow()) {
  if (tuning) QBTabMgr::db().setTuningForNow(tuning);
}

TuningForNow::~TuningForNow() { QBTabMgr::db().setTuningForNow(m_before); }

}  // namespace korvel
