// SPDX-License-Identifier: GPL-3.0-or-later
#include "chords/judging/ChordScores.h"

#include <algorithm>
#include <cmath>

namespace korvel::chords {
namespace {

/// Semitones above the root; -1 for none.
struct Steps {
  int third, fifth, seventh;
};
constexpr std::array<Steps, kSearchedKinds> kSteps{{{4, 7, -1},
                                                    {3, 7, -1},
                                                    {4, 7, 10},
                                                    {3, 7, 10},
                                                    {4, 7, 11},
                                                    {5, 7, -1},
                                                    {3, 6, -1},
                                                    {3, 6, 10}}};

/// Of the notes' path: as in the reading of a guitar's notes.
constexpr float kMostOfTone = 1.2F;
constexpr float kPresent = 0.05F;
constexpr float kBassOnRoot = 0.5F;
constexpr std::array<float, 4> kWorth{1, 0.9F, 0.8F, 0.75F};
constexpr std::array<float, 4> kAbsent{0.25F, 0.22F, 0.10F, 0};

/// How much longer beats say, in seconds.
constexpr double kUsualBeat = 0.6;
constexpr double kMostOfLength = 1.5;

/// Centred, of length 1; zeros when all values are equal.
Chroma direction(Chroma values) {
  float mean = 0, squares = 0;
  for (const float value : values) mean += value / kClasses;
  for (float& value : values) {
    value -= mean;
    squares += value * value;
  }
  const float scale = squares > 1e-12F ? 1 / std::sqrt(squares) : 0;
  for (float& value : values) value *= scale;
  return values;
}

/// A direction against one on C that is turned to a root.
float agreement(const Chroma& heard, const Chroma& onC, std::size_t root) {
  float sum = 0;
  for (std::size_t i = 0; i < kClasses; ++i) sum += heard[(i + root) % kClasses] * onC[i];
  return sum;
}

}  // namespace

Chroma withoutPartials(const Chroma& treble, const SearchWeights& weights) {
  Chroma result;
  for (std::size_t i = 0; i < kClasses; ++i) {
    const float thirdOf = treble[(i + kClasses - 4) % kClasses];
    const float fifthOf = treble[(i + kClasses - 7) % kClasses];
    result[i] = std::max(
        0.0F, treble[i] - weights.fifthPartials * thirdOf - weights.thirdPartials * fifthOf);
  }
  return result;
}

ChordScores::ChordScores(const SearchWeights& weights) : m_weights(weights) {
  for (std::size_t kind = 0; kind < kSearchedKinds; ++kind) {
    const Steps& steps = kSteps[kind];
    const auto put = [](Chroma& chroma, int step, float value) {
      if (step >= 0) chroma[static_cast<std::size_t>(step)] = value;
    };
    Chroma& treble = m_treble[kind];
    put(treble, 0, 1);
    put(treble, steps.third, weights.third);
    put(treble, steps.fifth, weights.fifth);
    put(treble, steps.seventh, weights.seventh);
    treble = direction(treble);
    Chroma& bass = m_bass[kind];
    put(bass, 0, 1);
    put(bass, steps.third, weights.bassThird);
    put(bass, steps.fifth, weights.bassFifth);
    bass = direction(bass);
  }
}

Scores ChordScores::of(const BeatEvidence& beat) const {
  Scores scores{};
  const auto length =
      static_cast<float>(std::sqrt(std::min(kMostOfLength, beat.seconds / kUsualBeat)));
  if (beat.isSilent) {
    scores[kNone] = m_weights.perFit * length;
    return scores;
  }
  const Chroma treble = direction(withoutPartials(beat.treble, m_weights));
  const Chroma bass = direction(beat.bass);
  const float weightOfBass = beat.onBarLine ? m_weights.bassOnBarLine : m_weights.bass;
  float all = 0;
  for (const float weight : beat.notes.weights) all += weight;
  for (std::size_t chord = 0; chord < kSearched; ++chord) {
    const std::size_t root = chord / kSearchedKinds, kind = chord % kSearchedKinds;
    const float fit = agreement(treble, m_treble[kind], root) +
                      weightOfBass * agreement(bass, m_bass[kind], root) - m_weights.costs[kind];
    scores[chord] =
        length * (m_weights.perFit * fit + m_weights.notes * byNotes(beat.notes, root, kind, all));
  }
  const float drums = std::clamp(
      (beat.percussive - m_weights.someDrums) / (m_weights.mostlyDrums - m_weights.someDrums), 0.0F,
      1.0F);
  const float none = m_weights.none + drums * m_weights.noneOfDrums;
  scores[kNone] = length * (m_weights.perFit * none - m_weights.notes * all);
  return scores;
}

float ChordScores::byNotes(const NoteEvidence& notes, std::size_t root, std::size_t kind,
                           float all) const {
  const std::array<int, 4> steps{0, kSteps[kind].third, kSteps[kind].fifth, kSteps[kind].seventh};
  float score = -all - m_weights.noteCosts[kind];
  for (std::size_t i = 0; i < steps.size() && steps[i] >= 0; ++i) {
    const float weight = notes.weights[(root + static_cast<std::size_t>(steps[i])) % kClasses];
    score += std::min(kMostOfTone, weight) * kWorth[i] + weight;
    if (weight < kPresent) score -= kAbsent[i];
  }
  return notes.bass == static_cast<int>(root) ? score + kBassOnRoot : score;
}

}  // namespace korvel::chords
