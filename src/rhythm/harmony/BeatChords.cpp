// SPDX-License-Identifier: GPL-3.0-or-later
#include "rhythm/harmony/BeatChords.h"

#include "rhythm/harmony/ChordTones.h"

namespace korvel::rhythm {
namespace {

double priceOnBeat(std::size_t beatOfBar, std::size_t beats) {
  if (beatOfBar == 0) return 1.3;
  if (beats == 4 && beatOfBar == 2) return 2.5;
  return 4.0;
}

}  // namespace

std::vector<ChordSpan> chordsOnBeats(const BeatTrack& track, const Bars& bars,
                                     std::span<const fingering::Note> notes) {
  std::vector<ChordScores> scores;
  std::vector<double> prices;
  for (const Sounding& sounding : soundingBetween(track, notes)) {
    prices.push_back(priceOnBeat(bars.of(scores.size()), bars.beats));
    scores.push_back(scoresOfChords(sounding));
  }
  std::vector<ChordSpan> spans;
  const std::vector<std::size_t> chords = bestChords(scores, prices);
  for (std::size_t i = 0; i < chords.size(); ++i) {
    const int tick = (static_cast<int>(i) - static_cast<int>(bars.first)) * kTicksOfBeat;
    if (i == 0 || chords[i] != chords[i - 1]) {
      spans.push_back({tick, tick, rootOf(chords[i]), qualityOf(chords[i])});
    }
    spans.back().to = tick + kTicksOfBeat;
  }
  return spans;
}

}  // namespace korvel::rhythm
