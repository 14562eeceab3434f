// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/songs/QBChordVisitor.h"

namespace korvel {

class QBSong;
class QBTone;

/// Writes every chord into another song with its tones pushed towards string 0: each to the next
/// lower string on which it can be fretted at 0..11, where there is one. The notes stay.
class QBToneToNextString : public QBChordVisitor {
 public:
  explicit QBToneToNextString(QBSong* target);
  ~QBToneToNextString() override;

  void execute(QBChord* previous, QBChord* current, QBChord* next) override;
  /// Adds the absolute note to the chord below the string; none when there is no place for it.
  QBTone* findPositionsFrom(QBChord& chord, int string, int note);

 protected:
  /// The lowest string that a tone may move to.
  virtual int lowestString() const { return 0; }
  virtual bool mayMoveTo(QBChord& made, int string, int fret);
  /// The chord that was made of the source's current one.
  QBChord* made() const;

 private:
  platform::Ref<QBSong> m_target;
  platform::Ref<QBChord> m_made;
};

}  // namespace korvel
