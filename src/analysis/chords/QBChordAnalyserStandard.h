// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "analysis/chords/QBChordAnalyser.h"

namespace korvel {

/// Makes a chord of each spectrum in which tones were heard: one tone for each, loudest first.
class QBChordAnalyserStandard : public QBChordAnalyser {
 public:
  using QBChordAnalyser::QBChordAnalyser;

  QBChord* nextChord(QBSong* song) override;
};

}  // namespace korvel
