// SPDX-License-Identifier: GPL-3.0-or-later
#include "rhythm/harmony/ChordTones.h"

#include <algorithm>
#include <cmath>

namespace korvel::rhythm {
namespace {

/// No note counts longer than this, in seconds, however long it rings.
constexpr double kLongestRinging = 12;
constexpr float kRingsOn = 0.6F;
/// Pitches below A3 may be a bass.
constexpr int kAboveBass = 57;
constexpr float kMostOfTone = 1.2F;
constexpr float kPresent = 0.05F;
constexpr float kBassOnRoot = 0.5F;
constexpr std::array<float, 4> kWorth{1, .9F, .8F, .75F};
constexpr std::array<float, 4> kAbsent{.25F, .22F, .10F, 0};

struct Template {
  std::array<int, 4> steps;
  std::size_t size;
  float price;
};
constexpr std::array<Template, kQualities> kTemplates{{{{0, 4, 7, 0}, 3, 0},
                                                       {{0, 3, 7, 0}, 3, 0},
                                                       {{0, 4, 7, 10}, 4, .25F},
                                                       {{0, 3, 7, 10}, 4, .25F},
                                                       {{0, 4, 7, 11}, 4, .3F}}};

int pitchClass(int pitch) { return ((pitch % kPitchClasses) + kPitchClasses) % kPitchClasses; }

float scoreOf(const Template& chord, int root, const Sounding& sounding, float all) {
  float score = -all - chord.price;
  for (std::size_t i = 0; i < chord.size; ++i) {
    const auto tone = static_cast<std::size_t>((root + chord.steps[i]) % kPitchClasses);
    const float weight = sounding.weights[tone];
    score += std::min(kMostOfTone, weight) * kWorth[i] + weight;
    if (weight < kPresent) score -= kAbsent[i];
  }
  return sounding.bass == root ? score + kBassOnRoot : score;
}

}  // namespace

bool areFingered(std::span<const fingering::Note> notes) {
  return std::ranges::any_of(notes, [](const fingering::Note& note) { return note.string >= 0; });
}

std::vector<Sounding> soundingBetween(std::span<const double> times,
                                      std::span<const fingering::Note> notes) {
  std::vector<Sounding> result(times.empty() ? 0 : times.size() - 1);
  std::vector<int> lowest(result.size(), kAboveBass);
  std::size_t first = 0;
  const bool haveStrings = areFingered(notes);
  for (const fingering::Note& note : notes) {
    if (haveStrings && note.string < 0) continue;
    while (first < result.size() && times[first + 1] <= note.onset) ++first;
    const double end = std::min(note.end, note.onset + kLongestRinging);
    for (std::size_t i = first; i < result.size() && times[i] < end; ++i) {
      const double overlap = std::min(end, times[i + 1]) - std::max(note.onset, times[i]);
      if (overlap <= 0) continue;
      const double share = std::min(1.0, overlap / (times[i + 1] - times[i]));
      const float weight = static_cast<float>(std::sqrt(share)) * note.probability;
      const auto tone = static_cast<std::size_t>(pitchClass(note.pitch));
      result[i].weights[tone] += note.onset < times[i] ? kRingsOn * weight : weight;
      if (note.pitch >= lowest[i] || share < 0.15) continue;
      lowest[i] = note.pitch;
      result[i].bass = static_cast<int>(tone);
    }
  }
  return result;
}

ChordScores scoresOfChords(const Sounding& sounding) {
  float all = 0;
  for (const float weight : sounding.weights) all += weight;
  ChordScores scores{};
  for (std::size_t chord = 0; chord < kChords; ++chord) {
    scores[chord] = scoreOf(kTemplates[chord % kQualities], rootOf(chord), sounding, all);
  }
  scores[kNoChord] = -all;
  return scores;
}

unsigned tonesOf(std::size_t chord) {
  if (chord == kNoChord) return 0;
  const Template& tones = kTemplates[chord % kQualities];
  unsigned bits = 0;
  for (std::size_t i = 0; i < tones.size; ++i) {
    bits |= 1U << ((rootOf(chord) + tones.steps[i]) % kPitchClasses);
  }
  return bits;
}

Explained explainedBy(std::size_t chord, const Sounding& sounding) {
  const unsigned tones = tonesOf(chord);
  double all = 0, inside = 0;
  for (std::size_t tone = 0; tone < kPitchClasses; ++tone) {
    const auto weight = static_cast<double>(sounding.weights[tone]);
    all += weight;
    if (tones >> tone & 1U) inside += weight;
  }
  return {all > 0 ? inside / all : 0, all};
}

std::vector<std::size_t> bestChords(std::span<const ChordScores> scores,
                                    std::span<const double> prices) {
  std::vector<std::array<std::uint8_t, kChords + 1>> from(scores.size());
  ChordScores total{};
  for (std::size_t i = 0; i < scores.size(); ++i) {
    const auto best = static_cast<std::size_t>(std::ranges::max_element(total) - total.begin());
    const float change = total[best] - static_cast<float>(prices[i]);
    for (std::size_t chord = 0; chord <= kChords; ++chord) {
      const bool stays = total[chord] >= change;
      from[i][chord] = static_cast<std::uint8_t>(stays ? chord : best);
      total[chord] = (stays ? total[chord] : change) + scores[i][chord];
    }
  }
  std::vector<std::size_t> path(scores.size());
  auto chord = static_cast<std::size_t>(std::ranges::max_element(total) - total.begin());
  for (std::size_t i = scores.size(); i-- > 0;) {
    path[i] = chord;
    chord = from[i][chord];
  }
  return path;
}

}  // namespace korvel::rhythm
