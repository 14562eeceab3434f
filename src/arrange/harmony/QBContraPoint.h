// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/songs/QBChordVisitor.h"

namespace korvel {

class QBTone;

/// Keeps bass and melody from moving alike: against a falling melody the bass has to rise, and
/// under one that rises or stays it does not repeat. Under a falling melody the lowest tones of a
/// chord go until that holds, all of them if need be; otherwise one goes. The chord before counts
/// as it is after its own visit.
class QBContraPoint final : public QBChordVisitor {
 public:
  /// Leaves the first chord as it is, and every chord when no instrument is selected.
  void execute(QBChord* previous, QBChord* current, QBChord* next) override;

 private:
  QBTone* melodyTone(const QBChord& chord) const;
  QBTone* brassTone(const QBChord& chord) const;
  /// The absolute note of a tone; below any other for none.
  int noteOfTone(const QBTone* tone) const;
  bool melodyFalls(const QBChord& previous, const QBChord& current) const;
};

}  // namespace korvel
