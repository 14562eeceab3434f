// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/songs/QBChordVisitor.h"

namespace korvel {

/// Silences the tones quieter than so many millions of amplitude, cut to whole millions.
class QBUnderAmpRemover final : public QBChordVisitor {
 public:
  explicit QBUnderAmpRemover(int factor) : m_factor(factor) {}
  void execute(QBChord* previous, QBChord* current, QBChord* next) override;

 private:
  int m_factor;
};

}  // namespace korvel
