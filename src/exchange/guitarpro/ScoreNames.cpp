// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/guitarpro/ScoreNames.h"

#include "export/score/Spelling.h"
#include "music/Pitch.h"

namespace korvel::exchange::guitarpro {

ScoreNames::ScoreNames(const Score& score, int capo) : m_capo(capo), m_key(score.key) {
  if (m_key) m_key->tonic = pitchClass(m_key->tonic - m_capo);
}

// A name counts until the next one; a chord without a name ends it.
std::optional<std::string> ScoreNames::above(const ScoreEvent& event) {
  if ((event.tones.empty() && !event.harmony) || event.harmony == m_harmony) return std::nullopt;
  m_harmony = event.harmony;
  if (!m_harmony) return std::nullopt;
  const int shape = pitchClass(m_harmony->root - m_capo);
  const SpelledNote root = spelled(shape, nullptr, m_key ? &*m_key : nullptr);
  std::string name(1, root.step);
  if (root.alter != 0) name += root.alter < 0 ? 'b' : '#';
  return name + m_harmony->type;
}

}  // namespace korvel::exchange::guitarpro
