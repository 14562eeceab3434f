// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "rhythm/Reading.h"

namespace korvel {

/// What a user says of a rhythm that has been read, one thing after the other: each becomes wishes
/// for the next reading, and takes back those before it that it contradicts.
class WishedRhythm {
 public:
  static constexpr double kSlowest = 20;  ///< Beats a minute that a reading may have.
  static constexpr double kFastest = 400;
  static constexpr std::size_t kFewestTaps = 4;

  /// tempo: in beats a minute, what ratios are of, as the song may have another one than the
  /// reading.
  WishedRhythm(const rhythm::Reading& reading, const rhythm::Wishes& wishes, double tempo);

  const rhythm::Wishes& wishes() const { return m_wishes; }

  // EditRefused for what cannot be.
  /// 2, 1/2, 3/2 or 2/3.
  void multiplyTempo(double factor);
  void setTempo(double beatsPerMinute);
  /// Beats lie at these times, in seconds of the recording.
  void setTaps(std::vector<double> seconds);
  void setMetre(const rhythm::Metre& metre);
  void setFeel(rhythm::Feel feel);
  /// 8 or 16.
  void setFinest(int value);
  /// There is a bar line at the beat next to that time.
  void setBarLine(double seconds);
  /// All of them move by one beat or by half of one: 1, -1, 0.5 or -0.5.
  void moveBarLines(double beats);
  /// The beat next to a time lies at another one.
  void dragBeat(double from, double to);
  void choose(const rhythm::Alternative& other);
  /// As it was heard, whatever was said before.
  void forget() { m_wishes = {}; }

 private:
  void forgetBeats();
  void requireBeats() const;
  std::size_t nearestBeat(double seconds) const;
  void moveByHalf(bool later);

  rhythm::Reading m_reading;
  rhythm::Wishes m_wishes;
  double m_tempo;
};

}  // namespace korvel
