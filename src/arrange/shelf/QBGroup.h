// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <unordered_set>
#include <vector>

#include "platform/persistence/Ref.h"

namespace korvel {

class QBChord;

/// A run of chords whose harmonies recur elsewhere in the song.
class QBGroup {
 public:
  explicit QBGroup(int number);
  ~QBGroup();

  /// A chord that is in the group already is not added again.
  void addChord(QBChord* chord);
  const std::vector<platform::Ref<QBChord>>& m_chords() const { return m_members; }

  int m_counter;  ///< Number of the group, from 1.

 private:
  std::vector<platform::Ref<QBChord>> m_members;
  std::unordered_set<const QBChord*> m_known;
};

}  // namespace korvel
