// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/persistence/Ref.h"
#include "playback/ChordTimes.h"

namespace korvel {

/// A chord at each step. Times are kept in single precision, as positions are looked up with the
/// same rounding.
///
/// A song in measures clicks where a chord begins on a beat of its measure; chords in no measure
/// have none. Any other song clicks at every fourth chord from the first of the range on, all
/// alike. The count-in is a bar of the measure that the first chord is in, or four clicks where it
/// is in none.
class StepTimes final : public ChordTimes {
 public:
  explicit StepTimes(QBSong& song);

  /// How long a note of so many steps sounds: it ends a little before the next chord.
  static double lengthOfSteps(double steps);

  double goTo(const QBChord& chord) override;
  double lengthOf(const QBTone& tone) const override;
  std::vector<TimedBeat> beats(int from, int to) const override;
  std::vector<TimedBeat> countIn(int from) const override;
  /// The end of the song has no index, and so a song of one chord has none at all: whoever shows
  /// positions shows them up to the chord before the last.
  int indexAt(double time) const override;
  double placeOf(int index) const override;
  double lastStruck() const override { return m_lastStruck; }
  double end() const override;
  double endOfLoop() const override;
  std::optional<double> turnOfLoop() const override { return std::nullopt; }
  float shareUntil(int index, int count) const override;
  double secondsUntil(int chord) const override;
  std::optional<double> recordedSecondsAt(double time) const override;

 private:
  platform::Ref<QBSong> m_song;
  int m_count;
  float m_time = 0;  ///< When the last chord begins.
  double m_lastStruck = 0;
  int m_lastDuration = 1;                       ///< Of that chord, in steps.
  std::optional<std::int64_t> m_firstSample{};  ///< Of the recording, where the first chord begins.
};

}  // namespace korvel
