// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/songs/QBChordVisitor.h"

namespace korvel {

/// Keeps the n loudest tones.
class QBApplyLoudest final : public QBChordVisitor {
 public:
  explicit QBApplyLoudest(int nmb) : m_nmb(nmb) {}
  void execute(QBChord* previous, QBChord* current, QBChord* next) override;

 private:
  int m_nmb;
};

}  // namespace korvel
