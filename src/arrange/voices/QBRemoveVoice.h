// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/songs/QBChordVisitor.h"

namespace korvel {

/// Deletes one voice, 0 the highest, where the chord has it.
class QBRemoveVoice final : public QBChordVisitor {
 public:
  explicit QBRemoveVoice(int voice) : m_voice(voice) {}
  void execute(QBChord* previous, QBChord* current, QBChord* next) override;

 private:
  int m_voice;
};

}  // namespace korvel
