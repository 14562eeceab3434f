// SPDX-License-Identifier: GPL-3.0-or-later
#include "rhythm/beats/Onsets.h"

#include <algorithm>
#include <bit>
#include <cmath>

#include "rhythm/beats/SlowStrums.h"

namespace korvel::rhythm {
namespace {

constexpr int kTones = 12;

/// Seconds from one note of a strum to the next, and from the first to the last one.
constexpr double kStepOfStrum = 0.042;
constexpr double kLongestStrum = 0.115;
/// The same pitch again within this time is one note heard twice.
constexpr double kTwice = 0.03;
/// A string that is heard late comes at most so long after the first one.
constexpr double kLatestString = 0.12;
/// The beat lies inside a strum.
constexpr double kBeatOfStrum = 0.35;
/// Each onset is compared with those within these seconds, and not with more than so many.
constexpr double kNeighbourhood = 4;
constexpr double kShortlyBefore = 1.5;
constexpr std::size_t kMostBefore = 12;
constexpr std::size_t kMostNeighbours = 64;

/// The weights of the cues in the two accents.
using CueWeights = std::array<double, kCues>;
constexpr CueWeights kOnBeats{.45, .20, .35, .80, .90, .15, -.30};
constexpr CueWeights kOnBars{.30, .10, .45, .15, .50, .90, -.30};
/// How much the accent decides on which places of a beat notes stand.
constexpr double kAccentOnPlaces = 0.72;

double bounded(double value) { return std::clamp(value, -1.0, 1.0); }

class Joiner {
 public:
  explicit Joiner(std::span<const fingering::Note> notes) : m_notes(notes) {}

  bool belongs(const Onset& onset, const fingering::Note& note) const {
    if (note.onset > m_notes[onset.notes.back()].onset + kStepOfStrum) return false;
    if (note.onset > m_notes[onset.notes.front()].onset + kLongestStrum) return false;
    return std::ranges::none_of(onset.notes, [&](std::size_t i) {
      return m_notes[i].pitch == note.pitch && note.onset > m_notes[i].onset + kTwice;
    });
  }

  /// A single string of a strum that is heard late, as low ones are: alone, and on none of the
  /// strings that were struck.
  bool isLate(const Onset& onset, std::size_t note) const {
    constexpr std::size_t kFewest = 3;
    const fingering::Note& late = m_notes[note];
    if (late.string < 0 || onset.notes.size() < kFewest) return false;
    if (late.onset > m_notes[onset.notes.front()].onset + kLatestString) return false;
    const bool isAlone =
        note + 1 == m_notes.size() || m_notes[note + 1].onset > late.onset + kStepOfStrum;
    return isAlone && std::ranges::all_of(onset.notes, [&](std::size_t i) {
             return m_notes[i].string >= 0 && m_notes[i].string != late.string &&
                    m_notes[i].pitch != late.pitch;
           });
  }

  void finish(Onset& onset) const {
    onset.first = m_notes[onset.notes.front()].onset;
    onset.time = onset.first + kBeatOfStrum * spreadOf(onset);
    onset.lowest = onset.highest = m_notes[onset.notes.front()].pitch;
    double doubt = 1;
    for (const std::size_t i : onset.notes) {
      onset.strength += m_notes[i].strength;
      onset.lowest = std::min(onset.lowest, m_notes[i].pitch);
      onset.highest = std::max(onset.highest, m_notes[i].pitch);
      onset.sounds = std::max(onset.sounds, m_notes[i].end - m_notes[i].onset);
      onset.pitchClasses |= 1U << ((m_notes[i].pitch % kTones + kTones) % kTones);
      doubt *= 1 - std::clamp<double>(m_notes[i].probability, 0, 1);
    }
    onset.strength = std::max(onset.strength, 1e-3);
    onset.weight = std::max(1 - doubt, 1e-3);
    onset.cues[Cue::stroke] = stroke(onset);
  }

 private:
  /// Seconds from the first note to the last one that is not late.
  double spreadOf(const Onset& onset) const {
    const double last = m_notes[onset.notes.back()].onset;
    if (onset.notes.size() < 2) return 0;
    const double before = m_notes[onset.notes[onset.notes.size() - 2]].onset;
    const bool isLate = last > before + kStepOfStrum && last - onset.first <= kLatestString;
    return (isLate ? before : last) - onset.first;
  }

  /// The correlation of pitch and time.
  double stroke(const Onset& onset) const {
    constexpr double kLeastSpread = 0.015;
    if (onset.notes.size() < 3) return 0;
    if (m_notes[onset.notes.back()].onset - onset.first < kLeastSpread) return 0;
    double time = 0, pitch = 0;
    for (const std::size_t i : onset.notes) {
      time += m_notes[i].onset;
      pitch += m_notes[i].pitch;
    }
    time /= static_cast<double>(onset.notes.size());
    pitch /= static_cast<double>(onset.notes.size());
    double both = 0, times = 0, pitches = 0;
    for (const std::size_t i : onset.notes) {
      const double t = m_notes[i].onset - time, p = m_notes[i].pitch - pitch;
      both += t * p;
      times += t * t;
      pitches += p * p;
    }
    return times > 0 && pitches > 0 ? both / std::sqrt(times * pitches) : 0;
  }

  std::span<const fingering::Note> m_notes;
};

std::vector<Onset> joined(std::span<const fingering::Note> notes) {
  const Joiner joiner(notes);
  const SlowStrums slow(notes);
  std::vector<Onset> onsets;
  std::size_t endOfStroke = 0;
  for (std::size_t i = 0; i < notes.size(); ++i) {
    const bool isStroked = i < endOfStroke;
    if (!isStroked) endOfStroke = slow.endOf(i);
    const bool joins =
        isStroked || (!onsets.empty() && endOfStroke == i &&
                      (joiner.belongs(onsets.back(), notes[i]) || joiner.isLate(onsets.back(), i)));
    if (!joins) onsets.emplace_back();
    onsets.back().notes.push_back(i);
  }
  for (Onset& onset : onsets) joiner.finish(onset);
  std::ranges::stable_sort(onsets, {}, &Onset::time);
  return onsets;
}

/// The value below which a share of all lies; changes their order.
double quantile(std::vector<double>& values, double share) {
  const double at = share * static_cast<double>(values.size() - 1);
  const auto below = values.begin() + static_cast<std::ptrdiff_t>(at);
  std::ranges::nth_element(values, below);
  if (below + 1 == values.end()) return *below;
  const double above = *std::min_element(below + 1, values.end());
  return *below + (at - std::floor(at)) * (above - *below);
}

/// Compares onsets with their neighbours.
class Comparison {
 public:
  explicit Comparison(std::vector<Onset>& onsets) : m_onsets(onsets) {
    for (const Onset& onset : onsets) {
      m_logStrengths.push_back(std::log(onset.strength));
      m_logSounds.push_back(std::log2(std::max(onset.sounds, 0.03)));
    }
    for (std::size_t i = 0; i + 1 < onsets.size(); ++i) {
      m_logGaps.push_back(std::log2(std::max(onsets[i + 1].time - onsets[i].time, 0.01)));
    }
    if (!onsets.empty()) m_logGaps.push_back(m_logGaps.empty() ? 0 : m_logGaps.back());
  }

  void weighAll() {
    for (std::size_t i = 0; i < m_onsets.size(); ++i) {
      moveTo(i);
      compareStrength(i);
      compareGap(i);
      compareBass(i);
      compareSounds(i);
      comparePitches(i);
    }
  }

 private:
  void moveTo(std::size_t i) {
    const double time = m_onsets[i].time;
    while (m_onsets[m_first].time < time - kNeighbourhood) ++m_first;
    while (m_end < m_onsets.size() && m_onsets[m_end].time <= time + kNeighbourhood) ++m_end;
    m_from = std::max(m_first, i - std::min(i, kMostNeighbours));
    m_to = std::min(m_end, i + kMostNeighbours);
  }

  template <class Value>
  std::vector<double>& around(Value value) {
    m_around.clear();
    for (std::size_t i = m_from; i < m_to; ++i) m_around.push_back(value(i));
    return m_around;
  }

  void compareStrength(std::size_t i) {
    std::vector<double>& all = around([&](std::size_t k) { return m_logStrengths[k]; });
    double mean = 0, square = 0;
    for (const double value : all) mean += value;
    mean /= static_cast<double>(all.size());
    for (const double value : all) square += (value - mean) * (value - mean);
    const double deviation = std::sqrt(square / static_cast<double>(all.size()));
    Onset& onset = m_onsets[i];
    onset.cues[Cue::loud] = bounded((m_logStrengths[i] - mean) / (2 * std::max(deviation, 0.08)));
    const double median = std::exp(quantile(all, 0.5));
    onset.weight *= std::pow(std::min(1.0, onset.strength / (0.6 * median)), 0.7);
  }

  void compareGap(std::size_t i) {
    const double median = quantile(around([&](std::size_t k) { return m_logGaps[k]; }), 0.5);
    m_onsets[i].cues[Cue::long_] = bounded((m_logGaps[i] - median) / 1.5);
  }

  void compareBass(std::size_t i) {
    constexpr double kLeastRange = 4;
    std::vector<double>& all =
        around([&](std::size_t k) { return double{1} * m_onsets[k].lowest; });
    const double low = quantile(all, 0.2), high = quantile(all, 0.8);
    if (high - low < kLeastRange) return;
    m_onsets[i].cues[Cue::low] = bounded(((low + high) / 2 - m_onsets[i].lowest) / (high - low));
  }

  void compareSounds(std::size_t i) {
    const double median = quantile(around([&](std::size_t k) { return m_logSounds[k]; }), 0.5);
    m_onsets[i].cues[Cue::held] = bounded((m_logSounds[i] - median) / 1.5);
  }

  void comparePitches(std::size_t i) {
    constexpr double kUsuallyFresh = 0.3, kUsuallyAgain = 0.2;
    if (i == 0) return;
    Onset& onset = m_onsets[i];
    unsigned before = 0;
    for (std::size_t k = i; k-- > i - std::min(i, kMostBefore);) {
      if (onset.time - m_onsets[k].time > kShortlyBefore) break;
      before |= m_onsets[k].pitchClasses;
    }
    const double all = std::popcount(onset.pitchClasses);
    onset.cues[Cue::fresh] = std::popcount(onset.pitchClasses & ~before) / all - kUsuallyFresh;
    onset.cues[Cue::again] = (onset.highest == m_onsets[i - 1].highest ? 1 : 0) - kUsuallyAgain;
  }

  std::vector<Onset>& m_onsets;
  std::vector<double> m_logSounds;
  std::vector<double> m_logStrengths;
  std::vector<double> m_logGaps;
  std::vector<double> m_around;
  std::size_t m_first = 0, m_end = 0, m_from = 0, m_to = 0;
};

double accent(const Cues& cues, const CueWeights& weights) {
  double sum = 0;
  for (std::size_t i = 0; i < kCues; ++i) sum += weights[i] * cues.values()[i];
  return bounded(sum);
}

void accentuate(Onset& onset) {
  onset.accent = accent(onset.cues, kOnBeats);
  onset.barAccent = accent(onset.cues, kOnBars);
  for (std::size_t k = 0; k < kPlaces; ++k) {
    onset.favour[k] =
        static_cast<float>(std::exp(kAccentOnPlaces * onset.accent * kAccentOfPlace[k]));
  }
}

}  // namespace

std::vector<Onset> onsetsOf(std::span<const fingering::Note> notes) {
  std::vector<Onset> onsets = joined(notes);
  Comparison(onsets).weighAll();
  for (Onset& onset : onsets) accentuate(onset);
  return onsets;
}

}  // namespace korvel::rhythm
