// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/shelf/QBGroupToString.h"

#include "model/songs/QBChord.h"

namespace korvel {

void QBGroupToString::execute(QBChord* previous, QBChord* current, QBChord*) {
  if (!current->hasGroupNumber()) return;
  const int number = current->groupNumber();
  const bool goesOn = previous && previous->hasGroupNumber() && previous->groupNumber() == number;
  m_text += goesOn ? "----" : "||-" + std::to_string(number) + "-";
}

}  // namespace korvel
