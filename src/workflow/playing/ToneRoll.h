// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

namespace korvel {

class QBSong;
class QBTone;

/// The tones of a song in time. A chord takes one step, as it is played, and in a song on beats as
/// many as it has ticks. A copy of what the song was when the roll was made; chords are indexes in
/// its `allChords`.
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
  /// The step that a chord begins with; that of the end is as many as there are chords.
  int begin(int chord) const;
  int stepsOf(int chord) const { return begin(chord + 1) - begin(chord); }
  /// The chord at a step; the first or last one outside of the song, 0 without any.
  int chordAt(int step) const;
  /// How many steps have the room of one chord of a song that is not on beats: a sixteenth.
  int stepsOfColumn() const { return m_stepsOfColumn; }
  /// The lowest and the highest pitch of all tones; 0 without any.
  int lowestPitch() const { return m_lowest; }
  int highestPitch() const { return m_highest; }
  /// Chords that begin a bar, ascending; empty for a song without bars.
  const std::vector<int>& bars() const { return m_bars; }
  /// 0 where a song on beats begins with a pick-up.
  int numberOfFirstBar() const { return m_firstBar; }
  /// Steps at which a beat begins within a bar, ascending; empty for a song that is not on beats.
  const std::vector<int>& beats() const { return m_beats; }

 private:
  void layOut(QBSong& song);
  void layOutOnBeats(QBSong& song);
  int lengthOf(const QBTone& tone, int chord) const;
  void readTones(QBSong& song);
  void endAtRepetition();
  void readBars(QBSong& song);

  std::vector<Tone> m_tones;
  std::vector<int> m_bars;
  std::vector<int> m_beats;
  std::vector<int> m_begins{0};  ///< Of each chord, then of the end.
  int m_chords = 0;
  int m_stepsOfColumn = 1;
  int m_firstBar = 1;
  int m_lowest = 0;
  int m_highest = 0;
  int m_longest = 0;
};

}  // namespace korvel
