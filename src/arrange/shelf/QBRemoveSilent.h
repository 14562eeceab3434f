// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/songs/QBChordVisitor.h"

namespace korvel {

/// Deletes the tones that are at most so many times as loud as the loudest of the chord: with a
/// factor of 1 or more every tone goes, the loudest too.
class QBRemoveSilent final : public QBChordVisitor {
 public:
  explicit QBRemoveSilent(float factor) : m_factor(factor) {}
  void execute(QBChord* previous, QBChord* current, QBChord* next) override;

 private:
  float m_factor;
};

}  // namespace korvel
