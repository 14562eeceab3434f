// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "platform/persistence/Ref.h"

namespace korvel {

class QBChord;
class QBRightHandPattern;

/// Chooses which strings the right hand strikes, among all patterns of the store.
class RightHandChoice {
 public:
  RightHandChoice();
  ~RightHandChoice();

  /// The heaviest pattern whose strings all sound in the chord, of equals the one of the smaller
  /// order; none when there is none. The previous chord, if any, keeps the pattern that is read
  /// from it.
  QBRightHandPattern* findPatternByChord(QBChord* previous, const QBChord& current) const;

 private:
  std::vector<platform::Ref<QBRightHandPattern>> m_patterns;
};

}  // namespace korvel
