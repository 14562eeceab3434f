// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/songs/QBChordVisitor.h"

namespace korvel {

/// Pushes tones towards string 0 as QBToneToNextString does, but where a hand can follow: a tone
/// whose next lower string is taken already stays on its own. Of several tones on one string, those
/// that find no free one are dropped, the later ones first.
class TonesPushedDown final : public QBChordVisitor {
 public:
  void execute(QBChord* previous, QBChord* current, QBChord* next) override;
};

}  // namespace korvel
