// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "arrange/hands/QBToneToNextString.h"

namespace korvel {

/// Pushes tones down like its base, but never onto string 0, and not to a place that the chord
/// before already holds when the hand would have to stay near it.
class QBToneToNextStringAlternated final : public QBToneToNextString {
 public:
  using QBToneToNextString::QBToneToNextString;
  ~QBToneToNextStringAlternated() override;

  void execute(QBChord* previous, QBChord* current, QBChord* next) override;

 protected:
  int lowestString() const override { return 1; }
  bool mayMoveTo(QBChord& made, int string, int fret) override;

 private:
  platform::Ref<QBChord> m_last;
};

}  // namespace korvel
