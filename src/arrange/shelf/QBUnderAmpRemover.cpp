// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/shelf/QBUnderAmpRemover.h"

#include <cmath>

#include "model/songs/QBTone.h"
#include "model/songs/ToneOrder.h"

namespace korvel {

void QBUnderAmpRemover::execute(QBChord*, QBChord* current, QBChord*) {
  constexpr double kMillion = 1000000.0;
  for (const auto& tone : tonesOf(*current))
    if (std::trunc(tone->amp() / kMillion) < m_factor) tone->setActive(false);
}

}  // namespace korvel
