// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/guitarpro/ScoreNames.h"

#include "export/score/Spelling.h"

namespace korvel::exchange::guitarpro {

// A name counts until the next one; a chord without a name ends it.
std::optional<std::string> ScoreNames::above(const ScoreEvent& event) {
  if ((event.tones.empty() && !event.harmony) || event.harmony == m_harmony) return std::nullopt;
  m_harmony = event.harmony;
  if (!m_harmony) return std::nullopt;
  const SpelledNote root = spelled(m_harmony->root, nullptr, m_score.key ? &*m_score.key : nullptr);
  std::string name(1, root.step);
  if (root.alter != 0) name += root.alter < 0 ? 'b' : '#';
  return name + m_harmony->type;
}

}  // namespace korvel::exchange::guitarpro
