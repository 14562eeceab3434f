// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/shelf/QBRemoveSilent.h"

#include "model/songs/QBTone.h"
#include "model/songs/ToneOrder.h"

namespace korvel {

void QBRemoveSilent::execute(QBChord*, QBChord* current, QBChord*) {
  Tones tones = loudestFirst(*current);
  if (tones.empty()) return;
  const double limit = static_cast<double>(m_factor) * tones.front()->amp();
  std::erase_if(tones, [&](const auto& tone) { return tone->amp() > limit; });
  deleteTones(*current, tones);
}

}  // namespace korvel
