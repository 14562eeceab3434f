// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/songs/QBChordVisitor.h"

namespace korvel {

/// Moves the tones of each chord to the best fingering that `QBTabBuilder` finds for it. Pitches
/// and whatever else a tone carries stay. Chords of fewer than two tones stay as they are, and so
/// do those of which every candidate would lose a tone.
class BestFingering final : public QBChordVisitor {
 public:
  void execute(QBChord* previous, QBChord* current, QBChord* next) override;
};

}  // namespace korvel
