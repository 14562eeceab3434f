// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <deque>

#include "recording/QBRecorder.h"

namespace korvel {

class QBInstrument;

/// Copies the tones of each chord that the instrument's spectra confirm into a target song.
class QBOnlineTestRecorder : public QBRecorder {
 public:
  /// Without an instrument no tone is confirmed.
  QBOnlineTestRecorder(std::shared_ptr<QBChordAnalyser> analyser, QBInstrument* instrument,
                       QBSong* newSong, QBAlbum* album);
  ~QBOnlineTestRecorder() override;

  /// The filtered chord of the target song; the analysed one is deleted.
  QBChord* nextStep() override;
  /// A chord of the target song with the confirmed tones, empty when none is.
  QBChord* filter(QBChord* chord);
  /// The first queued chord; this class itself queues none.
  QBChord* nextChord() override;
  void setVolume(float volume) override;
  float getVolume() const override;

 private:
  bool confirms(QBChord& chord, int string, int fret) const;

  platform::Ref<QBInstrument> m_instrument;
  platform::Ref<QBSong> m_newSong;
  std::deque<platform::Ref<QBChord>> m_filtered;
};

}  // namespace korvel
