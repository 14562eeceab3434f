// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/songs/QBChordVisitor.h"

namespace korvel {

/// Deletes the lowest tone; chords of one or two tones keep theirs.
class QBRemoveBrass final : public QBChordVisitor {
 public:
  void execute(QBChord* previous, QBChord* current, QBChord* next) override;
};

}  // namespace korvel
