// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/songs/QBChordVisitor.h"

namespace korvel {

/// Silences the tones of a loudness layer and of the louder ones.
class QBFromGroupRemover final : public QBChordVisitor {
 public:
  explicit QBFromGroupRemover(int group) : m_group(group) {}
  void execute(QBChord* previous, QBChord* current, QBChord* next) override;

 private:
  int m_group;
};

}  // namespace korvel
