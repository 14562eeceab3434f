// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

namespace korvel {

class QBSong;

/// The tones of a song in time: one step for each chord, as it is played. A copy of what the song
/// was when the roll was made; chords are indexes in its `allChords`.
class ToneRoll {
 public:
  struct Tone {
    int chord;
    int steps;  ///< How long it rings, at most until the same note is struck again.
    int pitch;  ///< MIDI number in the song's tuning.
    int string;
    int fret;
    double loudness;  ///< 1 the song's loudest tone, 0 what is 40 dB quieter or more.
    bool active;
  };

  ToneRoll() = default;
  explicit ToneRoll(QBSong& song);

  /// By chord, then by pitch.
  const std::vector<Tone>& tones() const { return m_tones; }
  /// The tones of which some may sound in the chords [first, end): a run of `tones`.
  std::vector<Tone>::const_iterator firstSounding(int first) const;
  std::vector<Tone>::const_iterator endSounding(int end) const;
  int chords() const { return m_chords; }
  /// The lowest and the highest pitch of all tones; 0 without any.
  int lowestPitch() const { return m_lowest; }
  int highestPitch() const { return m_highest; }
  /// Chords that begin a bar, ascending; empty for a song without bars.
  const std::vector<int>& bars() const { return m_bars; }

 private:
  void readTones(QBSong& song);
  void endAtRepetition();
  void readBars(QBSong& song);

  std::vector<Tone> m_tones;
  std::vector<int> m_bars;
  int m_chords = 0;
  int m_lowest = 0;
  int m_highest = 0;
  int m_longest = 0;
};

}  // namespace korvel
