// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "recording/QBRecorder.h"

namespace korvel {

/// Has an analyser that is sure of its tones, the precise one, write into a song: every chord is
/// kept as it was heard, named, and its tones sorted by loudness. Step it without timer until the
/// analyser is at its end.
class PreciseRecorder final : public QBRecorder {
 public:
  PreciseRecorder(std::shared_ptr<QBChordAnalyser> analyser, QBSong* newSong, QBAlbum* album);
  ~PreciseRecorder() override;

  /// The chord that the step stored; none while the analyser still listens.
  QBChord* nextStep() override;
  /// The same, with harmony and groups of tones.
  QBChord* nextChord() override;

 private:
  platform::Ref<QBSong> m_newSong;
};

}  // namespace korvel
