// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/songs/ScratchSong.h"
#include "music/OpenStrings.h"
#include "platform/persistence/Ref.h"

namespace korvel {

class QBChord;
class QBHold;
class QBInstrument;
class QBTone;

/// Transposes one chord into a scratch song, from which the caller copies it.
class QBChordTransposer {
 public:
  /// The offset is in semitones, negative for down. Tones are placed without regard to minFret.
  QBChordTransposer(QBChord* source, QBInstrument* instrument, int minFret, int offset);
  ~QBChordTransposer();

  int m_minFret() const { return m_lowestFret; }
  /// The transposed chord, with the root moved along and without a harmony; it may have no tones.
  /// Active tones alone are taken, each to the highest string that has it at frets 0..11; those
  /// below the lowest note there is, the C of 65.41 Hz or a string that is tuned lower, go up an
  /// octave, those that fit no string are left out.
  /// Valid until disposed of; to be called before that.
  QBChord* transpose();
  /// Deletes the scratch song; at the latest, this object does when it goes.
  void dispose() { m_scratch.dispose(); }

 private:
  void place(const QBTone& tone, QBHold& target) const;

  platform::Ref<QBChord> m_source;
  int m_lowestFret;
  int m_offset;
  OpenStrings m_strings;
  ScratchSong m_scratch;
};

}  // namespace korvel
