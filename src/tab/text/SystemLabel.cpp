// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/text/SystemLabel.h"

#include "model/instruments/QBTuning.h"
#include "model/instruments/SongTuning.h"

namespace korvel {

std::vector<std::string> systemLabel(const QBSong* song) {
  QBTuning* tuning = tuningOf(song);
  return tuning ? tuning->stringNames() : std::vector<std::string>();
}

}  // namespace korvel
