// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "model/songs/QBChordVisitor.h"

namespace korvel {

class QBHold;
class QBLeftHandPattern;
class QBSong;

/// Base of the filters that simplify fingerings: knows which pattern of the left hand a grip is
/// like.
class QBLeftHandExtractor : public QBChordVisitor {
 public:
  explicit QBLeftHandExtractor(QBSong* target);
  ~QBLeftHandExtractor() override;

  /// The pattern of the highest score, of equals the one of the smallest order; none only when
  /// there are no patterns.
  QBLeftHandPattern* findPatternByChord(const QBChord& chord) const;

  /// How well the hand's shape covers the grip when it slides along the neck: the three largest
  /// different numbers of strings stopped at one fret, together, for each tone of the hold. 0 when
  /// the shape would be needed at places that the hand cannot hold at once.
  static float matches(const QBLeftHandPattern& pattern, const QBHold& hold);

 protected:
  QBSong* target() const;

 private:
  platform::Ref<QBSong> m_target;
  std::vector<platform::Ref<QBLeftHandPattern>> m_patterns;
};

}  // namespace korvel
