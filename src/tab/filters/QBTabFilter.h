// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/persistence/Ref.h"

namespace korvel {

class QBChord;
class QBSong;
class QBTone;

/// The picking pass over a copy of a song: a tone that rings on with falling loudness through the
/// following chords becomes one longer tone, and empty chords lengthen the chord before them.
class QBTabFilter {
 public:
  /// Works on the chords that the target has now.
  QBTabFilter(QBSong* source, QBSong* target);
  ~QBTabFilter();

  /// Answers the target. NoChords when that has none.
  QBSong* filter();

  /// Deletes the repetitions of the tone from chord `start` on for as long as each is quieter than
  /// the one before, and answers how many. The time stamp does not matter.
  int eliminateTones(std::int64_t timestamp, std::size_t start, const QBTone& tone);

 private:
  void mergeTones();
  void foldEmptyChords();
  bool isEmpty(std::size_t index) const;

  platform::Ref<QBSong> m_source;  ///< Kept for as long as its copy is worked on.
  platform::Ref<QBSong> m_target;
  std::vector<platform::Ref<QBChord>> m_chords;
};

}  // namespace korvel
