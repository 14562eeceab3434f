// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/voices/QBRemoveVoice.h"

#include "model/songs/ToneOrder.h"

namespace korvel {

void QBRemoveVoice::execute(QBChord*, QBChord* current, QBChord*) {
  const Tones tones = highestFirst(*current);
  const auto voice = static_cast<std::size_t>(m_voice);
  if (voice < tones.size()) deleteTones(*current, std::span(tones).subspan(voice, 1));
}

}  // namespace korvel
