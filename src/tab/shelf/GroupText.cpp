// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/shelf/GroupText.h"

#include "arrange/shelf/QBGroup.h"
#include "model/songs/QBChord.h"
#include "tab/text/ChordText.h"
#include "tab/text/QBTabMatrix.h"
#include "tab/text/SystemLabel.h"

namespace korvel {

std::string toMatrix(const QBGroup& group) {
  QBTabMatrix matrix;
  matrix.openSystem(systemLabel(nullptr));
  const QBChord* previous = nullptr;
  for (const auto& chord : group.m_chords()) {
    addToTabulatureWithLineBreak(*chord, matrix, previous, 0, kWidthOfSystem);
    previous = chord;
  }
  return matrix.toStringInverted();
}

}  // namespace korvel
