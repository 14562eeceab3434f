// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/QBGroup.h"
#include "model/QBChord.h"
#include "tab/QBTabMatrix.h"
#include "tab/SystemLabel.h"

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
