// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/SystemLabel.h"

#include "model/QBTabMgr.h"
#include "model/QBTuning.h"

namespace korvel {

std::string systemLabel() {
  QBTuning* tuning = QBTabMgr::db().selectedTuning();
  return tuning ? tuning->toString() : std::string();
}

}  // namespace korvel
