// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/songs/QBChordVisitor.h"

namespace korvel {

/// Names each chord anew and deletes the tones that do not belong to its harmony. Chords that no
/// harmony explains stay as they are.
class QBNonChordToneRemover final : public QBChordVisitor {
 public:
  void execute(QBChord* previous, QBChord* current, QBChord* next) override;
};

}  // namespace korvel
