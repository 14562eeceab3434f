// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "arrange/QBChordVisitor.h"

namespace korvel {

/// Deletes the highest and the lowest tone. Chords of one or two tones keep them: merged with the
/// outer voices again they would be lost otherwise.
class QBRemoveMelodyBrass final : public QBChordVisitor {
 public:
  void execute(QBChord* previous, QBChord* current, QBChord* next) override;
};

}  // namespace korvel
