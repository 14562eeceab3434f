// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/songs/QBChordVisitor.h"

namespace korvel {

/// Deletes the highest and the lowest tone. Chords of one or two tones have no middle and are
/// left whole, as intended.
class QBRemoveMelodyBrass final : public QBChordVisitor {
 public:
  void execute(QBChord* previous, QBChord* current, QBChord* next) override;
};

}  // namespace korvel
