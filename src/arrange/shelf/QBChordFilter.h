// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/persistence/Ref.h"

namespace korvel {

class QBSong;

/// Reduces every run of identical chords to its first one.
class QBChordFilter {
 public:
  explicit QBChordFilter(QBSong* source);
  ~QBChordFilter();

  /// The song that takes the chords.
  QBSong* m_song() const;
  void setM_song(QBSong* song);

  /// Copies the first chord of each run into the result song, which must be set, and answers that.
  QBSong* filter();

 private:
  platform::Ref<QBSong> m_source;
  platform::Ref<QBSong> m_target;
};

}  // namespace korvel
