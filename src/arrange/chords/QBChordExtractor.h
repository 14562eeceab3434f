// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/songs/QBChordVisitor.h"

namespace korvel {

class QBSong;

/// Copies the chords of positions from..to, both included, into another song.
class QBChordExtractor final : public QBChordVisitor {
 public:
  QBChordExtractor(int from, int to, QBSong* target);
  ~QBChordExtractor() override;

  void execute(QBChord* previous, QBChord* current, QBChord* next) override;

 private:
  int m_from;
  int m_to;
  platform::Ref<QBSong> m_target;
};

}  // namespace korvel
