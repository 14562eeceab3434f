// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/songs/QBChordVisitor.h"

namespace korvel {

/// Keeps a line that one plectrum can play: a voice, 0 the highest, and the next lower one with it
/// when that lies on the neighbouring lower string. A chord without a lower voice than the line
/// stays as it is, with the voices above.
class QBPlectrumExtractor final : public QBChordVisitor {
 public:
  explicit QBPlectrumExtractor(int voice) : m_voice(voice) {}
  void execute(QBChord* previous, QBChord* current, QBChord* next) override;

 private:
  int m_voice;
};

}  // namespace korvel
