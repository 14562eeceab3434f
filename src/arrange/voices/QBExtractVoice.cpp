// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/voices/QBExtractVoice.h"

#include "model/songs/ToneOrder.h"

namespace korvel {

void QBExtractVoice::execute(QBChord*, QBChord* current, QBChord*) {
  Tones tones = highestFirst(*current);
  const auto voice = static_cast<std::size_t>(m_voice);
  if (voice < tones.size()) tones.erase(tones.begin() + m_voice);
  deleteTones(*current, tones);
}

}  // namespace korvel
