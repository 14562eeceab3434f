// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace korvel {

class QBSong;

/// What says when the chords of a song on beats come.
struct TimedChords {
  struct Chord {
    int ticks = 0;
    std::optional<std::int64_t> beatTime{};  ///< As of `QBChord`.
  };

  double tempo = 0;               ///< Beats a minute; 0 when nobody knows.
  std::optional<double> swing{};  ///< As of `QBSong`; none when it is not swung.
  int pickUp = 0;                 ///< Ticks before the first bar line.
  std::vector<Chord> chords{};
};

TimedChords timedChordsOf(QBSong& song);

/// Where the chords of a song on beats are written, and when that is played. Computed once: not to
/// be kept while the song is edited.
///
/// Ticks count from the first bar line, so that a pick-up, which is a first measure that is not
/// full, lies before 0.
class SongTime {
 public:
  /// As the beats came in the recording, or evenly at the song's tempo.
  enum class Tempo { asRecorded, strict };

  /// A song whose chords are not from one recording in its order is played strictly.
  explicit SongTime(QBSong& song, Tempo tempo = Tempo::asRecorded);
  explicit SongTime(const TimedChords& song, Tempo tempo = Tempo::asRecorded);

  /// index: of the song's `allChords`; that of the end is as many as there are chords.
  int tickOf(std::size_t index) const { return m_ticks.at(index); }
  int begin() const { return m_ticks.front(); }
  int end() const { return m_ticks.back(); }
  /// The index of the chord that a tick lies in; that of the first or last one outside of the song.
  std::size_t chordAt(double tick) const;

  /// When what is written at a tick is played, swing included: in seconds of the recording, or
  /// from the first bar line on in strict tempo. Rises with the tick.
  double secondsOf(double tick) const;
  double tickOfSeconds(double seconds) const;
  /// Whether the times are those of the recording.
  bool isAsRecorded() const { return m_points.size() > 1; }
  /// Quarters a minute at that place; in compound time the beats that this counts are dotted.
  double beatsPerMinuteAt(double tick) const;

 private:
  struct Point {
    double tick;
    double seconds;
  };

  void layOut(const TimedChords& song);
  void followBeats(const TimedChords& song);
  double straightSecondsOf(double tick) const;
  double straightTickOf(double seconds) const;
  const Point* pointBefore(double value, double Point::*field) const;
  double swung(double tick) const;
  double unswung(double tick) const;

  double m_tempo;
  double m_swing;
  std::vector<int> m_ticks;     ///< Where each chord begins, then where the last one ends.
  std::vector<Point> m_points;  ///< Rising in both, at least two; none in strict tempo.
};

}  // namespace korvel
