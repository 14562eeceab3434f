// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/text/SystemLabel.h"

#include "model/instruments/QBTuning.h"
#include "model/store/QBTabMgr.h"

namespace korvel {

std::string systemLabel() {
  QBTuning* tuning = QBTabMgr::db().selectedTuning();
  return tuning ? tuning->toString() : std::string();
}

}  // namespace korvel
