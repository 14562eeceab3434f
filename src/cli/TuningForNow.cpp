// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/TuningForNow.h"

#include "model/QBTabMgr.h"
#include "model/QBTuning.h"

namespace korvel::cli {

TuningForNow::TuningForNow(QBTuning* tuning) : m_before(QBTabMgr::db().selectedTuning()) {
  if (tuning && tuning != m_before) QBTabMgr::db().selectTuning(tuning);
}

TuningForNow::~TuningForNow() {
  QBTabMgr& db = QBTabMgr::db();
  if (db.selectedTuning() != m_before) db.selectTuning(m_before);
}

}  // namespace korvel::cli
