// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/hands/QBPlectrumExtractor.h"

#include "model/songs/QBTone.h"
#include "model/songs/ToneOrder.h"

namespace korvel {

void QBPlectrumExtractor::execute(QBChord*, QBChord* current, QBChord*) {
  const Tones tones = highestFirst(*current);
  const auto lead = static_cast<std::size_t>(m_voice);
  if (tones.size() <= lead + 1) return;
  const bool together = tones[lead + 1]->string() == tones[lead]->string() - 1;
  const std::size_t end = lead + (together ? 2 : 1);
  deleteTones(*current, std::span(tones).subspan(end));
  deleteTones(*current, std::span(tones).first(lead));
}

}  // namespace korvel
