// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/shelf/QBGroupRemover.h"

#include "model/songs/QBTone.h"
#include "model/songs/ToneOrder.h"

namespace korvel {

void QBGroupRemover::execute(QBChord*, QBChord* current, QBChord*) {
  for (const auto& tone : tonesOf(*current))
    if (tone->group() == m_group) tone->setActive(false);
}

}  // namespace korvel
