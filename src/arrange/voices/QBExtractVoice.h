// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/songs/QBChordVisitor.h"

namespace korvel {

/// Keeps one voice, 0 the highest; a chord that has no such voice is left without tones.
class QBExtractVoice final : public QBChordVisitor {
 public:
  explicit QBExtractVoice(int voice) : m_voice(voice) {}
  void execute(QBChord* previous, QBChord* current, QBChord* next) override;

 private:
  int m_voice;
};

}  // namespace korvel
