// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <vector>

namespace korvel {

class QBSong;

/// On which strings a song was played, and where its hand was told to be, for when its chords are
/// made anew of the same recording: a tone of the same pitch that was struck at the same time goes
/// to its string, but in chords that are edited. Between songs of slices and songs on beats only
/// positions of the hand are kept.
class KeptFingers {
 public:
  /// Of the song as it is.
  explicit KeptFingers(QBSong& song);

  void putInto(QBSong& song) const;

 private:
  struct Tone {
    std::int64_t time;  ///< In samples of the recording.
    int pitch;
    int string;
  };
  struct Mark {
    double seconds;  ///< Of the recording.
    int handFret;
  };

  int stringOf(std::int64_t time, int pitch) const;
  void moveTones(QBSong& song) const;
  void setMarks(QBSong& song) const;

  std::vector<Tone> m_tones;  ///< By time.
  std::vector<Mark> m_marks;
};

}  // namespace korvel
