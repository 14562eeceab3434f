// SPDX-License-Identifier: GPL-3.0-or-later
#include "chords/judging/Repeats.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace korvel::chords {
namespace {

/// In beats: a passage, and from where to where it may come again. A few minutes.
constexpr std::size_t kPassage = 12;
constexpr std::size_t kLeastDistance = 8;
constexpr std::size_t kMostDistance = 1000;
/// Beats on both sides that tell whether one contradicts another.
constexpr std::size_t kAround = 1;

/// Major and minor, each with its root.
constexpr std::size_t kPlainChords = 2 * kClasses;
using Likely = std::array<float, kPlainChords>;

bool isMinor(std::size_t kind) {
  switch (static_cast<Kind>(kind)) {
    case Kind::minor:
    case Kind::minorSeventh:
    case Kind::diminished:
    case Kind::halfDiminished:
      return true;
    default:
      return false;
  }
}

/// Roots of probabilities, so that the product of two such is how alike two beats are, 0..1.
Likely likelyOf(const Scores& probable) {
  Likely likely{};
  for (std::size_t chord = 0; chord < kSearched; ++chord)
    likely[chord / kSearchedKinds + (isMinor(chord % kSearchedKinds) ? kClasses : 0)] +=
        probable[chord];
  for (float& value : likely) value = std::sqrt(value);
  return likely;
}

class Repeats {
 public:
  Repeats(std::span<const BeatEvidence> evidence, std::span<const ScoredBeat> beats,
          std::span<const Scores> probable, const SearchWeights& weights)
      : m_evidence(evidence),
        m_beats(beats),
        m_weights(weights),
        m_witnesses(beats.size()),
        m_sums(beats.begin(), beats.end()) {
    for (const Scores& each : probable) m_likely.push_back(likelyOf(each));
    for (const ScoredBeat& beat : beats) m_best.push_back(std::ranges::max(beat.scores));
  }

  std::vector<ScoredBeat> find() {
    for (std::size_t far = kLeastDistance; far <= kMostDistance && far + kPassage <= m_beats.size();
         ++far)
      if (hasSameBars(far)) lookAt(far);
    for (std::size_t i = 0; i < m_sums.size(); ++i)
      for (float& score : m_sums[i].scores)
        score /= std::pow(1 + m_witnesses[i], m_weights.repeatMean);
    return std::move(m_sums);
  }

 private:
  std::size_t countAt(std::size_t far) const { return m_beats.size() - far; }

  bool hasSameBars(std::size_t far) const {
    for (std::size_t i = 0; i < countAt(far); ++i)
      if (m_evidence[i].onBarLine != m_evidence[i + far].onBarLine) return false;
    return true;
  }

  void lookAt(std::size_t far) {
    measure(far);
    for (std::size_t i = 0; i < countAt(far); ++i) {
      if (m_alike[i] <= m_weights.repeatFrom) continue;
      if (m_evidence[i].isSilent || m_evidence[i + far].isSilent) continue;
      const float sure =
          (m_alike[i] - m_weights.repeatFrom) / (m_weights.repeatSurely - m_weights.repeatFrom);
      witness(i, i + far, std::min(1.0F, sure) * agreement(i, far));
    }
  }

  /// For each beat how alike the best passage is that it lies in.
  void measure(std::size_t far) {
    const std::size_t count = countAt(far);
    std::vector<float> sums(count + 1);
    m_gaps.assign(count, 0);
    for (std::size_t i = 0; i < count; ++i) {
      float alike = 0;
      for (std::size_t chord = 0; chord < kPlainChords; ++chord)
        alike += m_likely[i][chord] * m_likely[i + far][chord];
      sums[i + 1] = sums[i] + alike;
    }
    m_alike.assign(count, 0);
    for (std::size_t from = 0; from + kPassage <= count; ++from) {
      const float mean = (sums[from + kPassage] - sums[from]) / kPassage;
      if (mean <= m_weights.repeatFrom) continue;
      for (std::size_t i = from; i < from + kPassage; ++i) m_alike[i] = std::max(m_alike[i], mean);
    }
    for (std::size_t i = 0; i < count; ++i)
      if (m_alike[i] > 0) m_gaps[i] = gap(i, i + far);
  }

  /// What two beats lose when they have to be of one chord.
  float gap(std::size_t a, std::size_t b) const {
    float both = m_beats[a].scores[0] + m_beats[b].scores[0];
    for (std::size_t chord = 1; chord < m_beats[a].scores.size(); ++chord)
      both = std::max(both, m_beats[a].scores[chord] + m_beats[b].scores[chord]);
    return m_best[a] + m_best[b] - both;
  }

  float agreement(std::size_t beat, std::size_t far) const {
    const std::size_t from = beat - std::min(beat, kAround);
    const std::size_t to = std::min(countAt(far), beat + kAround + 1);
    float sum = 0;
    for (std::size_t i = from; i < to; ++i) sum += m_gaps[i];
    return std::exp(-sum / static_cast<float>(to - from) / m_weights.repeatGap);
  }

  void witness(std::size_t a, std::size_t b, float weight) {
    m_witnesses[a] += weight;
    m_witnesses[b] += weight;
    for (std::size_t chord = 0; chord < m_beats[a].scores.size(); ++chord) {
      m_sums[a].scores[chord] += weight * m_beats[b].scores[chord];
      m_sums[b].scores[chord] += weight * m_beats[a].scores[chord];
    }
  }

  std::span<const BeatEvidence> m_evidence;
  std::span<const ScoredBeat> m_beats;
  const SearchWeights& m_weights;
  std::vector<float> m_witnesses;  ///< How many other beats count in the sum of each.
  std::vector<ScoredBeat> m_sums;
  std::vector<Likely> m_likely;
  std::vector<float> m_best;
  // At one distance, of the earlier beat.
  std::vector<float> m_alike;
  std::vector<float> m_gaps;
};

}  // namespace

std::vector<ScoredBeat> withRepeats(std::span<const BeatEvidence> evidence,
                                    std::span<const ScoredBeat> beats,
                                    std::span<const Scores> probable,
                                    const SearchWeights& weights) {
  return Repeats(evidence, beats, probable, weights).find();
}

}  // namespace korvel::chords
