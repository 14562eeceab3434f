// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/persistence/Ref.h"
#include "rhythm/Reading.h"

namespace korvel {

class QBSong;

/// What the passages of a song on beats are called, while notes of it change. Names that its user
/// gave stay.
class PassageNames {
 public:
  /// As the song's notes are before they change.
  explicit PassageNames(QBSong& song);
  ~PassageNames();

  /// Names the passages by the notes that the song has by its corrections now.
  void follow();

 private:
  rhythm::Reading readingOf(QBSong& song) const;
  void rename(const rhythm::ChordSpan& before, const rhythm::ChordSpan& after);

  platform::Ref<QBSong> m_song;
  rhythm::Reading m_before;
};

}  // namespace korvel
