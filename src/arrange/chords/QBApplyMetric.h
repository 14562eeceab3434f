// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/songs/QBChordVisitor.h"

namespace korvel {

class QBMeasure;
class QBSong;

/// Lays the chords into measures of a song, each measure as full as it gets. Chords without an
/// active tone go into none.
class QBApplyMetric final : public QBChordVisitor {
 public:
  QBApplyMetric(int beat, int beattype, QBSong* song);
  ~QBApplyMetric() override;

  void execute(QBChord* previous, QBChord* current, QBChord* next) override;

 private:
  void openMeasure();

  int m_beat;
  int m_beattype;
  platform::Ref<QBSong> m_song;
  platform::Ref<QBMeasure> m_cursor;  ///< The measure that is being filled.
};

}  // namespace korvel
