// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "platform/persistence/Ref.h"

namespace korvel {

class QBChord;
class QBMeasure;
class QBSong;

/// The words of a song during a change of its chords or bars: they stay in their bars, wherever
/// these move, and go with bars that go. In a song without bars they stay at their chords.
class AnchoredWords {
 public:
  /// Of the song as it is.
  explicit AnchoredWords(QBSong& song);

  /// When the change is made.
  void putBack() const;

 private:
  struct Anchored {
    platform::Ref<QBMeasure> bar;  ///< Null in a song without bars.
    platform::Ref<QBChord> chord;  ///< The words begin at it, or during it.
    int offset;                    ///< Ticks after the beginning of its bar.
    std::string text;
  };

  QBSong& m_song;
  std::vector<Anchored> m_words;
};

/// The same when the rhythm of a song is read anew, or its recording heard anew: words stay at
/// their time in the recording.
class TimedWords {
 public:
  explicit TimedWords(QBSong& song);

  /// At the beats of the new reading, or of a song of slices at its chords; where the time is still
  /// that of the place, at that. Without times of the recording words are left as they are.
  void putInto(QBSong& song) const;

 private:
  struct Timed {
    double seconds;
    int tick;
    std::string text;
  };

  void putOnBeats(QBSong& song) const;

  std::vector<Timed> m_words;
};

}  // namespace korvel
