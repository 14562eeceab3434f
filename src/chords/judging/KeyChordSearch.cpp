// SPDX-License-Identifier: GPL-3.0-or-later
#include "chords/judging/KeyChordSearch.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <memory>

namespace korvel::chords {
namespace {

constexpr std::size_t kStates = kSearched + 1;

/// How a chord in a key was reached.
enum Step : std::uint8_t { stay, otherChord, otherKey, otherBoth };

template <class Value>
struct Best {
  Value score = -1e30F;
  std::size_t key = 0;
  std::size_t chord = 0;
};

/// Where each state of a beat came from.
struct From {
  std::array<std::uint8_t, kKeys * kStates / 4 + 1> steps{};  ///< Two bits each.
  std::array<std::uint8_t, kKeys> chordOfKey{};
  std::array<std::uint8_t, kStates> keyOfChord{};
  std::uint8_t key = 0, chord = 0;

  void set(std::size_t state, Step step) {
    steps[state / 4] = static_cast<std::uint8_t>(steps[state / 4] | step << 2 * (state % 4));
  }
  Step at(std::size_t state) const {
    return static_cast<Step>(steps[state / 4] >> 2 * (state % 4) & 3);
  }
};

class PathSearch {
 public:
  PathSearch(const KeyChordPrices& prices, float keyChange)
      : m_prices(prices), m_keyChange(keyChange) {}

  void begin(const ScoredBeat& beat) {
    for (std::size_t key = 0; key < kKeys; ++key)
      for (std::size_t chord = 0; chord < kStates; ++chord)
        m_total[key][chord] = beat.scores[chord] - m_prices.beat[key][chord];
  }

  void advance(const ScoredBeat& beat, From& from) {
    findBest(from);
    const InKeys before = m_total;
    for (std::size_t key = 0; key < kKeys; ++key) {
      for (std::size_t chord = 0; chord < kStates; ++chord) {
        const float entry = beat.change + m_prices.entry[key][chord];
        Step step = stay;
        float best = before[key][chord];
        const auto offer = [&](float score, Step how) {
          if (score <= best) return;
          best = score;
          step = how;
        };
        offer(m_ofKey[key] - entry, otherChord);
        offer(m_ofChord[chord] - m_keyChange, otherKey);
        offer(m_best - m_keyChange - entry, otherBoth);
        from.set(key * kStates + chord, step);
        m_total[key][chord] = best + beat.scores[chord] - m_prices.beat[key][chord];
      }
    }
  }

  InItsKey end() {
    From last;
    findBest(last);
    return {last.key, last.chord};
  }

 private:
  void findBest(From& from) {
    m_best = -1e30F;
    m_ofKey.fill(-1e30F);
    m_ofChord.fill(-1e30F);
    for (std::size_t key = 0; key < kKeys; ++key) {
      for (std::size_t chord = 0; chord < kStates; ++chord) {
        const float total = m_total[key][chord];
        if (total > m_ofKey[key]) {
          m_ofKey[key] = total;
          from.chordOfKey[key] = static_cast<std::uint8_t>(chord);
        }
        if (total > m_ofChord[chord]) {
          m_ofChord[chord] = total;
          from.keyOfChord[chord] = static_cast<std::uint8_t>(key);
        }
      }
      if (m_ofKey[key] <= m_best) continue;
      m_best = m_ofKey[key];
      from.key = static_cast<std::uint8_t>(key);
      from.chord = from.chordOfKey[key];
    }
  }

  const KeyChordPrices& m_prices;
  float m_keyChange;
  InKeys m_total{};
  float m_best = 0;
  std::array<float, kKeys> m_ofKey{};
  InKey m_ofChord{};
};

}  // namespace

std::vector<InItsKey> bestPath(std::span<const ScoredBeat> beats, const KeyChordPrices& prices,
                               float keyChange) {
  std::vector<InItsKey> path(beats.size());
  if (beats.empty()) return path;
  std::vector<From> from(beats.size());
  PathSearch search(prices, keyChange);
  search.begin(beats.front());
  for (std::size_t i = 1; i < beats.size(); ++i) search.advance(beats[i], from[i]);
  path.back() = search.end();
  for (std::size_t i = beats.size() - 1; i > 0; --i) {
    const InItsKey& now = path[i];
    const Step step = from[i].at(now.key * kStates + now.chord);
    if (step == stay) path[i - 1] = now;
    if (step == otherChord) path[i - 1] = {now.key, from[i].chordOfKey[now.key]};
    if (step == otherKey) path[i - 1] = {from[i].keyOfChord[now.chord], now.chord};
    if (step == otherBoth) path[i - 1] = {from[i].key, from[i].chord};
  }
  return path;
}

}  // namespace korvel::chords
