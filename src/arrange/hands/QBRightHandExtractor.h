// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "arrange/hands/RightHandChoice.h"
#include "model/songs/QBChordVisitor.h"

namespace korvel {

class QBRightHandPattern;
class QBSong;

/// Writes every chord into another song with only the tones that the right hand strikes. The
/// patterns that it reads of previous chords stay with them: the one thing that is written into the
/// song it walks over.
class QBRightHandExtractor final : public QBChordVisitor {
 public:
  explicit QBRightHandExtractor(QBSong* target);
  ~QBRightHandExtractor() override;

  /// A chord that no pattern fits is copied as it is.
  void execute(QBChord* previous, QBChord* current, QBChord* next) override;
  QBRightHandPattern* findPatternByChord(QBChord* previous, const QBChord& current) const {
    return m_choice.findPatternByChord(previous, current);
  }
  /// A new chord of the target with the tones on the pattern's strings, named anew.
  void toChord(const QBChord& chord, const QBRightHandPattern& pattern);

 private:
  platform::Ref<QBSong> m_target;
  RightHandChoice m_choice;
};

}  // namespace korvel
