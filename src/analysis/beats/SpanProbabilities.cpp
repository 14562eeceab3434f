// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/beats/SpanProbabilities.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "rhythm/harmony/ChordTones.h"

namespace korvel {
namespace {

using rhythm::ChordScores;
using rhythm::ChordSpan;
using rhythm::Quality;

/// Of 392 labelled chords: those of a margin of 0.5 for the root of a beat were right in two of
/// three cases, those of 2 in 19 of 20.
constexpr double kSteepness = 1.5;

bool isMinor(Quality quality) {
  return quality == Quality::minor || quality == Quality::minorSeventh;
}

/// Of another root or third, or none; a seventh does not make a chord another one.
bool isOther(std::size_t chord, const ChordSpan& span) {
  return rhythm::rootOf(chord) != span.root ||
         isMinor(rhythm::qualityOf(chord)) != isMinor(span.quality);
}

std::size_t chordOf(const ChordSpan& span) {
  const std::size_t qualities = rhythm::kQualities;
  return static_cast<std::size_t>(span.root) * qualities + static_cast<std::size_t>(span.quality);
}

/// How much better a chord explains what sounds than all others.
double marginOf(const ChordSpan& span, const ChordScores& scores) {
  float other = scores[rhythm::kNoChord];
  for (std::size_t chord = 0; chord < rhythm::kChords; ++chord)
    if (isOther(chord, span)) other = std::max(other, scores[chord]);
  return static_cast<double>(scores[chordOf(span)] - other);
}

}  // namespace

/// Beats say much the same, so that four of them tell twice as much as one.
void tellProbabilities(std::span<const fingering::Note> notes, rhythm::Reading& reading) {
  const std::vector<rhythm::Sounding> beats = rhythm::soundingBetween(reading.beats, notes);
  const int first = static_cast<int>(reading.firstBar);
  const int last = static_cast<int>(beats.size());
  for (ChordSpan& span : reading.chords) {
    if (span.root < 0) continue;
    const int from = std::clamp(span.from / rhythm::kTicksOfBeat + first, 0, last);
    const int to = std::clamp(span.to / rhythm::kTicksOfBeat + first, from, last);
    ChordScores sum{};
    for (int beat = from; beat < to; ++beat) {
      const ChordScores scores = rhythm::scoresOfChords(beats[static_cast<std::size_t>(beat)]);
      for (std::size_t chord = 0; chord < sum.size(); ++chord) sum[chord] += scores[chord];
    }
    const double margin = marginOf(span, sum) / std::sqrt(std::max(to - from, 1));
    span.probability = 1 / (1 + std::exp(-kSteepness * margin));
  }
}

}  // namespace korvel
