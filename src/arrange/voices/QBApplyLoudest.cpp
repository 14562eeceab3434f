// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/voices/QBApplyLoudest.h"

#include <algorithm>

#include "model/songs/ToneOrder.h"

namespace korvel {

void QBApplyLoudest::execute(QBChord*, QBChord* current, QBChord*) {
  const Tones tones = loudestFirst(*current);
  const auto kept = static_cast<std::size_t>(std::max(m_nmb, 0));
  if (kept < tones.size()) deleteTones(*current, std::span(tones).subspan(kept));
}

}  // namespace korvel
