// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <array>
#include <cmath>
#include <memory>

#include "chords/judging/KeyChordSearch.h"

namespace korvel::chords {
namespace {

/// So many beats are gone through again from one that was kept.
constexpr std::size_t kBeatsOfStretch = 64;

/// What prices leave of a probability.
struct Factors {
  Factors(const KeyChordPrices& prices, float keyChange, float trust)
      : otherKey(std::exp(-trust * keyChange)) {
    for (std::size_t key = 0; key < kKeys; ++key) {
      for (std::size_t chord = 0; chord < kSearched + 1; ++chord) {
        beat[key][chord] = std::exp(-trust * prices.beat[key][chord]);
        entry[key][chord] = std::exp(-trust * prices.entry[key][chord]);
      }
    }
  }

  InKeys beat{}, entry{};
  float otherKey;
};

struct Sums {
  explicit Sums(const InKeys& values) {
    for (std::size_t key = 0; key < kKeys; ++key) {
      for (std::size_t chord = 0; chord < values[key].size(); ++chord) {
        ofKey[key] += values[key][chord];
        ofChord[chord] += values[key][chord];
      }
      all += ofKey[key];
    }
  }

  std::array<float, kKeys> ofKey{};
  InKey ofChord{};
  float all = 0;
};

void normalise(InKeys& values) {
  const float scale = 1 / std::max(Sums(values).all, 1e-30F);
  for (InKey& row : values)
    for (float& value : row) value *= scale;
}

class BothWays {
 public:
  BothWays(std::span<const ScoredBeat> beats, const Factors& factors, float trust)
      : m_beats(beats), m_factors(factors), m_trust(trust) {}

  /// What comes after the beats before, and this beat.
  InKeys first() const {
    InKeys values;
    for (InKey& row : values) row.fill(1);
    return witnessed(values, 0);
  }

  InKeys forward(const InKeys& before, std::size_t beat) const {
    const Sums sums(before);
    const float other = std::exp(-m_trust * m_beats[beat].change);
    InKeys values;
    for (std::size_t key = 0; key < kKeys; ++key) {
      const float anyChord = other * (sums.ofKey[key] + m_factors.otherKey * sums.all);
      for (std::size_t chord = 0; chord < values[key].size(); ++chord)
        values[key][chord] = before[key][chord] + m_factors.otherKey * sums.ofChord[chord] +
                             m_factors.entry[key][chord] * anyChord;
    }
    return witnessed(values, beat);
  }

  /// How well a beat's states go with all that comes after it; `after` is the same of the next one.
  InKeys backward(const InKeys& after, std::size_t beat) const {
    const InKeys next = witnessed(after, beat + 1);
    InKeys entered = next;
    for (std::size_t key = 0; key < kKeys; ++key)
      for (std::size_t chord = 0; chord < entered[key].size(); ++chord)
        entered[key][chord] *= m_factors.entry[key][chord];
    const Sums stays(next), enters(entered);
    const float other = std::exp(-m_trust * m_beats[beat + 1].change);
    InKeys values;
    for (std::size_t key = 0; key < kKeys; ++key)
      for (std::size_t chord = 0; chord < values[key].size(); ++chord)
        values[key][chord] = next[key][chord] + m_factors.otherKey * stays.ofChord[chord] +
                             other * (enters.ofKey[key] + m_factors.otherKey * enters.all);
    normalise(values);
    return values;
  }

 private:
  InKeys witnessed(InKeys values, std::size_t beat) const {
    const Scores& scores = m_beats[beat].scores;
    const float most = *std::ranges::max_element(scores);
    Scores likely;
    for (std::size_t i = 0; i < scores.size(); ++i)
      likely[i] = std::exp(m_trust * (scores[i] - most));
    for (std::size_t key = 0; key < kKeys; ++key)
      for (std::size_t chord = 0; chord < values[key].size(); ++chord)
        values[key][chord] *= likely[chord] * m_factors.beat[key][chord];
    normalise(values);
    return values;
  }

  std::span<const ScoredBeat> m_beats;
  const Factors& m_factors;
  float m_trust;
};

Scores marginals(const InKeys& forward, const InKeys& backward) {
  Scores result{};
  float all = 0;
  for (std::size_t key = 0; key < kKeys; ++key)
    for (std::size_t chord = 0; chord < result.size(); ++chord)
      result[chord] += forward[key][chord] * backward[key][chord];
  for (const float value : result) all += value;
  for (float& value : result) value /= std::max(all, 1e-30F);
  return result;
}

}  // namespace

/// Forward values of a stretch are kept only while it is gone through backwards.
std::vector<Scores> probabilities(std::span<const ScoredBeat> beats, const KeyChordPrices& prices,
                                  float keyChange, float trust) {
  std::vector<Scores> result(beats.size());
  if (beats.empty()) return result;
  const auto factors = std::make_unique<Factors>(prices, keyChange, trust);
  const BothWays both(beats, *factors, trust);
  std::vector<InKeys> firsts{both.first()};
  InKeys now = firsts.front();
  for (std::size_t i = 1; i < beats.size(); ++i) {
    now = both.forward(now, i);
    if (i % kBeatsOfStretch == 0) firsts.push_back(now);
  }
  InKeys after;
  for (InKey& row : after) row.fill(1);
  for (std::size_t stretch = firsts.size(); stretch-- > 0;) {
    const std::size_t from = stretch * kBeatsOfStretch;
    const std::size_t to = std::min(beats.size(), from + kBeatsOfStretch);
    std::vector<InKeys> forward{firsts[stretch]};
    for (std::size_t i = from + 1; i < to; ++i) forward.push_back(both.forward(forward.back(), i));
    for (std::size_t i = to; i-- > from;) {
      if (i + 1 < beats.size()) after = both.backward(after, i);
      result[i] = marginals(forward[i - from], after);
    }
  }
  return result;
}

}  // namespace korvel::chords
