// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <vector>

#include "export/score/BeatMusic.h"
#include "export/score/BeatSheet.h"
#include "model/songs/SongTime.h"

namespace korvel {

/// Where a song on beats stands in its score.
class SongBeats {
 public:
  /// The sheet must outlive this.
  explicit SongBeats(const BeatSheet& sheet);

  const SongTime& time() const { return m_time; }
  /// Units from the first bar line, of a place in ticks.
  int unitsOf(int tick) const;
  /// The song's measures, as far as the song goes at least; or bars of another meter, which begin
  /// at the same first bar line.
  std::vector<BeatBar> bars(const std::optional<Meter>& meter = std::nullopt) const;
  BeatMusic music(const std::optional<Meter>& meter = std::nullopt) const;
  /// Quarters a minute, in the middle of the song.
  double tempo() const;

 private:
  /// A bar of the song, its place in ticks and in units.
  struct Bar {
    int tick;
    int ticks;
    int unit;
    Meter meter;

    int unitsOfTick() const { return meter.isCompound() ? 3 : 2; }
  };

  void layOutBars();
  void addBar(const Meter& meter, int ticks);
  double secondsOfUnit(int unit) const;

  const BeatSheet& m_sheet;
  SongTime m_time;
  std::vector<Bar> m_bars;  ///< One at least, without gaps.
};

/// Sets the tempi of whole bars where they are more than 3 % off those before; usual: that of the
/// score, quarters a minute. secondsOf: when a place in units is played.
template <class SecondsOf>
void markTempi(std::vector<BeatBar>& bars, double usual, const SecondsOf& secondsOf) {
  constexpr double kQuarterMinutes = 60.0 / kUnitsOfQuarter;
  constexpr double kChange = 1.03;
  for (BeatBar& bar : bars) {
    const double seconds = secondsOf(bar.start + bar.length) - secondsOf(bar.start);
    if (!(seconds > 0) || bar.length < bar.meter.units()) continue;
    const double tempo = bar.length * kQuarterMinutes / seconds;
    if (tempo < usual * kChange && usual < tempo * kChange) continue;
    bar.tempo = tempo;
    usual = tempo;
  }
}

}  // namespace korvel
