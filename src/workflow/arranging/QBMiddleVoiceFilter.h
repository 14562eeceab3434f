// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/persistence/Ref.h"

namespace korvel {

class QBSong;

/// Makes a song of the outer voices, melody and bass, and of the middle tones of each chord that
/// sound on longest.
class QBMiddleVoiceFilter {
 public:
  /// Makes two intermediate songs beside the song, which `filter` deletes. size: how many middle
  /// tones to keep.
  QBMiddleVoiceFilter(QBSong* song, int size);
  ~QBMiddleVoiceFilter();

  /// The new song, titled after the source with "(mv)". Once only.
  QBSong* filter();

 private:
  void countSustains();
  void keepMostSustained();

  platform::Ref<QBSong> m_source;
  platform::Ref<QBSong> m_melbrass;
  platform::Ref<QBSong> m_middle;
  platform::Ref<QBSong> m_target;
  int m_size;
};

}  // namespace korvel
