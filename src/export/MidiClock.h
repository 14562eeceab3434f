// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <vector>

#include "export/MidiFile.h"

namespace korvel {

/// When the beats of a recording are played, and where they stand in a MIDI file: between them time
/// runs evenly.
class MidiClock {
 public:
  /// division: ticks of a quarter.
  explicit MidiClock(int division) : m_division(division) {}

  /// Beats in order, two at least, each later than the one before in both. The first one is at tick
  /// 0.
  void addBeat(double seconds, std::int64_t tick);

  /// What lies outside of the beats goes on as fast as the nearest two.
  std::int64_t tickAt(double seconds) const;
  /// The tempo of the first beat, and wherever it changes, in whole microseconds; what that rounds
  /// away is made up for. rate: how many times as fast it is played.
  std::vector<MidiTempo> tempi(double rate = 1) const;

 private:
  struct Beat {
    double seconds;
    std::int64_t tick;
  };

  int m_division;
  std::vector<Beat> m_beats;
};

}  // namespace korvel
