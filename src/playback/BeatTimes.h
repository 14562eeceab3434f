// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/persistence/Ref.h"
#include "playback/ChordTimes.h"

namespace korvel {

class QBMeasure;

/// A song on beats, as it is written: each chord and tone has its ticks, at the tempo of the
/// recording or in strict tempo.
///
/// It clicks on the beats of its measures, wherever chords begin; without measures on all beats
/// alike. The count-in is a whole bar before the one in which playing begins, and goes on up to
/// that place, through a pick-up up to the first bar line; all at the tempo of the beginning.
class BeatTimes final : public ChordTimes {
 public:
  BeatTimes(QBSong& song, SongTime::Tempo tempo);

  double goTo(const QBChord& chord) override;
  double lengthOf(const QBTone& tone) const override;
  std::vector<TimedBeat> beats(int from, int to) const override;
  std::vector<TimedBeat> countIn(int from) const override;
  int indexAt(double time) const override;
  double placeOf(int index) const override;
  double lastStruck() const override { return m_lastStruck; }
  double end() const override { return m_end; }
  double endOfLoop() const override { return m_end; }
  std::optional<double> turnOfLoop() const override;
  float shareUntil(int index, int count) const override;
  double secondsUntil(int chord) const override;
  std::optional<double> recordedSecondsAt(double time) const override;

 private:
  /// In ticks. What is in no measure has a bar of no length.
  struct Bar {
    int begin, end;
    int downbeat;  ///< Where its first beat is: before its beginning in a pick-up.
    int length;
    int beat;
  };
  /// Indexes in the song, the end not included.
  struct Part {
    std::size_t first, end;
  };

  void readBars(const QBSong& song);
  void addBar(const QBMeasure& measure, Part part);
  Part partOf(int from, int to) const;
  Bar barAt(int tick) const;
  double secondsOfChord(std::size_t chord) const;
  int tickOfRepetition(const QBTone& tone, int end) const;
  double beginOf(int index) const;

  SongTime m_time;
  std::vector<platform::Ref<QBChord>> m_chords;
  std::vector<Bar> m_bars;
  std::size_t m_chord = 0;       ///< The one that was gone to last.
  std::vector<double> m_begins;  ///< Of those that were gone to.
  double m_lastStruck = 0;
  double m_origin = 0;  ///< Where the song's second 0 lies in the sequence.
  double m_end;
};

}  // namespace korvel
