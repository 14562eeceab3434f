// SPDX-License-Identifier: GPL-3.0-or-later
#include "chords/voices/VoiceSearch.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace korvel::chords {
namespace {

/// What a line does at a place: which tone, counted from the lowest, or a rest.
constexpr int kRest = -1;

/// How the best line came to a tone.
struct Step {
  std::int16_t from = kRest;
  bool isStruck = true;
};

/// The logarithm of the probability that such odds stand for.
float logProbability(float logOdds) {
  return logOdds > 0 ? -std::log1p(std::exp(-logOdds)) : logOdds - std::log1p(std::exp(logOdds));
}

class LineSearch {
 public:
  LineSearch(std::span<const VoiceEvidence> places, const VoicePrices& prices)
      : m_places(places), m_prices(prices), m_tones(places.front().sounds.size()) {
    for (const float each : places.front().sounds)
      m_worth.push_back(prices.heard * each - prices.start);
    m_restWorth = prices.heard * places.front().rests;
    m_steps.assign(places.size(), std::vector<Step>(m_tones));
    m_beforeRests.assign(places.size(), kRest);
  }

  std::vector<VoiceNote> best(int lowest) {
    for (std::size_t place = 1; place < m_places.size(); ++place) goOn(place);
    return readBack(lowest);
  }

 private:
  void goOn(std::size_t place) {
    const VoiceEvidence& heard = m_places[place];
    std::vector<float> worth(m_tones);
    for (std::size_t tone = 0; tone < m_tones; ++tone)
      worth[tone] =
          reached(place, tone, m_steps[place][tone]) + m_prices.heard * heard.sounds[tone];
    const auto loudest = std::ranges::max_element(m_worth);
    if (*loudest - m_prices.stop > m_restWorth) {
      m_restWorth = *loudest - m_prices.stop;
      m_beforeRests[place] = static_cast<int>(loudest - m_worth.begin());
    }
    m_restWorth += m_prices.heard * heard.rests;
    m_worth = std::move(worth);
  }

  /// The best way to have a tone at a place, without what is heard there.
  float reached(std::size_t place, std::size_t tone, Step& step) const {
    const float odds = m_places[place].restrikes[tone];
    const float held = m_worth[tone] + m_prices.restrike * logProbability(-odds);
    const float again = m_worth[tone] + m_prices.restrike * logProbability(odds) - m_prices.again;
    step = {static_cast<std::int16_t>(tone), again > held};
    const bool isBetween = m_places[place].kind == VoicePlace::Kind::between;
    const float begins = isBetween ? m_prices.between : 0;
    float best = std::max(held, again);
    for (std::size_t from = 0; from < m_tones; ++from) {
      if (from == tone) continue;
      const float changed = m_worth[from] - leap(from, tone) - m_prices.change - begins;
      if (changed <= best) continue;
      best = changed;
      step = {static_cast<std::int16_t>(from), true};
    }
    const float afterRest = m_restWorth - m_prices.start - begins;
    if (afterRest <= best) return best;
    step = {kRest, true};
    return afterRest;
  }

  float leap(std::size_t from, std::size_t to) const {
    constexpr std::size_t kOctave = 12;
    return m_prices.leap * static_cast<float>(std::min(from > to ? from - to : to - from, kOctave));
  }

  /// From the end, so that a note is begun by its last place and complete where it is struck.
  std::vector<VoiceNote> readBack(int lowest) const {
    std::vector<VoiceNote> notes;
    const auto loudest = std::ranges::max_element(m_worth);
    int tone = *loudest > m_restWorth ? static_cast<int>(loudest - m_worth.begin()) : kRest;
    std::size_t end = m_places.size();
    float sum = 0;
    for (std::size_t place = m_places.size(); place-- > 0;) {
      if (tone == kRest) {
        tone = m_beforeRests[place];
        end = place;
        continue;
      }
      const auto at = static_cast<std::size_t>(tone);
      const Step& step = m_steps[place][at];
      sum += std::exp(m_places[place].sounds[at]);
      if (!step.isStruck && place > 0) continue;
      notes.push_back({place, end, lowest + tone, sum / static_cast<float>(end - place)});
      tone = step.from;
      end = place;
      sum = 0;
    }
    std::ranges::reverse(notes);
    return notes;
  }

  std::span<const VoiceEvidence> m_places;
  const VoicePrices& m_prices;
  std::size_t m_tones;
  std::vector<float> m_worth;  ///< Of the best line to each tone at the last place.
  float m_restWorth = 0;
  std::vector<std::vector<Step>> m_steps;
  std::vector<int> m_beforeRests;  ///< What the best line that rests at a place had before.
};

}  // namespace

std::vector<VoiceNote> bestLine(std::span<const VoiceEvidence> places,
                                const VoiceWeights& weights) {
  if (places.empty()) return {};
  return LineSearch(places, weights.prices).best(weights.lowest);
}

}  // namespace korvel::chords
