// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/persistence/Ref.h"

namespace korvel {

class QBAlbum;
class QBChord;
class QBInstrument;

/// Base of the arrangement filters: a song hands it every chord in order (`QBSong::iterate`). It
/// changes the current chord or collects what it needs elsewhere, and knows no other filter.
class QBChordVisitor {
 public:
  QBChordVisitor();
  virtual ~QBChordVisitor();

  /// previous is none for the first chord, next for the last.
  virtual void execute(QBChord* previous, QBChord* current, QBChord* next);

  /// The one that is selected when a song begins to hand over its chords.
  QBInstrument* m_instrument() const;
  void setM_instrument(QBInstrument* instrument);
  int m_index() const { return m_chordIndex; }
  void setM_index(int index) { m_chordIndex = index; }
  QBAlbum* m_album() const;
  void setM_album(QBAlbum* album);

 private:
  platform::Ref<QBInstrument> m_selectedInstrument;
  platform::Ref<QBAlbum> m_albumOfSong;
  int m_chordIndex = 0;
};

}  // namespace korvel
