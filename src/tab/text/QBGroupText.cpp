// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/groups/QBGroup.h"
#include "model/songs/QBChord.h"
#include "tab/text/QBTabMatrix.h"
#include "tab/text/SystemLabel.h"

namespace korvel {

std::string QBGroup::toMatrix() const {
  QBTabMatrix matrix;
  matrix.openSystem(systemLabel());
  const QBChord* previous = nullptr;
  for (const auto& chord : m_members) {
    chord->addToTabulatureWithLineBreak(matrix, previous, 0, kWidthOfSystem);
    previous = chord;
  }
  return matrix.toStringInverted();
}

}  // namespace korvel
