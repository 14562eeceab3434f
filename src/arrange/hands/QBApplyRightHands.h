// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "arrange/hands/RightHandChoice.h"
#include "model/songs/QBChordVisitor.h"

namespace korvel {

/// Keeps the tones on the strings of the pattern that the right hand strikes best, and stores the
/// pattern in the chord. A chord that no pattern fits stays as it is.
class QBApplyRightHands final : public QBChordVisitor {
 public:
  void execute(QBChord* previous, QBChord* current, QBChord* next) override;

 private:
  RightHandChoice m_choice;
};

}  // namespace korvel
