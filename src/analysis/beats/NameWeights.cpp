// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/beats/NameWeights.h"

#include <algorithm>
#include <bit>
#include <cmath>

#include "model/book/QBHarmony.h"
#include "model/store/QBTabMgr.h"
#include "music/Pitch.h"

namespace korvel {
namespace {

/// What a tone in a name is for.
struct Role {
  double worth;   ///< While it sounds.
  double absent;  ///< Against the name when it does not.
};
constexpr Role kRoot{1, .25};
constexpr Role kThird{.9, .22};  ///< Or what is suspended in its place.
constexpr Role kFifth{.8, .1};
constexpr Role kAlteredFifth{.8, .3};
constexpr Role kOption{.75, .5};

constexpr double kMostOfTone = 1.2;
constexpr double kPresent = .05;
constexpr double kBassOnRoot = .5;
/// For each tone beyond three, and for a triad that is not major or minor.
constexpr double kPerOption = .25;
constexpr double kRareTriad = .25;
constexpr int kTonesOfTriad = 3;
/// Of the logarithm of what is made of a score.
constexpr double kSteepnessOfNames = 3;

/// Bit n for n half tones above the root.
unsigned intervalsOf(QBHarmony& harmony) {
  unsigned intervals = 0;
  for (int step = 0; step < kNotesPerOctave; ++step)
    if (harmony.includesNote(0, step)) intervals |= 1U << step;
  return intervals;
}

bool has(unsigned intervals, int step) { return (intervals >> step & 1U) != 0; }

bool isThird(unsigned intervals, int step) {
  if (has(intervals, 3) || has(intervals, 4)) return step == 4 || (step == 3 && !has(intervals, 4));
  return step == 5 || (step == 2 && !has(intervals, 5));
}

Role roleOf(unsigned intervals, int step) {
  if (step == 0) return kRoot;
  if (isThird(intervals, step)) return kThird;
  if (step == 7) return kFifth;
  if ((step == 6 || step == 8) && !has(intervals, 7)) return kAlteredFifth;
  return kOption;
}

double priceOf(unsigned intervals) {
  const int tones = std::popcount(intervals);
  const bool common = has(intervals, 7) && (has(intervals, 3) || has(intervals, 4));
  return kPerOption * std::max(0, tones - kTonesOfTriad) + (common ? 0 : kRareTriad);
}

double scoreOf(unsigned intervals, int root, const rhythm::Sounding& sounding) {
  double score = -priceOf(intervals);
  for (int step = 0; step < kNotesPerOctave; ++step) {
    const auto tone = static_cast<std::size_t>(pitchClass(root + step));
    const auto weight = static_cast<double>(sounding.weights[tone]);
    if (!has(intervals, step)) {
      score -= weight;
      continue;
    }
    const Role role = roleOf(intervals, step);
    score += role.worth * std::min(kMostOfTone, weight);
    if (weight < kPresent) score -= role.absent;
  }
  return sounding.bass == root ? score + kBassOnRoot : score;
}

}  // namespace

std::vector<WeighedName> bestNames(const QBTabMgr& db, const rhythm::Sounding& sounding,
                                   std::size_t most) {
  if (std::ranges::none_of(sounding.weights, [](float weight) { return weight > 0; })) return {};
  std::vector<WeighedName> names;
  // They stand by falling order: of equals the more common one is to come first.
  const auto& harmonies = db.harmonies();
  for (auto harmony = harmonies.rbegin(); harmony != harmonies.rend(); ++harmony) {
    const unsigned intervals = intervalsOf(**harmony);
    for (int root = 0; root < kNotesPerOctave; ++root)
      names.push_back({{root, *harmony}, scoreOf(intervals, root, sounding)});
  }
  std::ranges::stable_sort(names, std::ranges::greater(), &WeighedName::weight);
  const double best = names.empty() ? 0 : names.front().weight;
  double all = 0;
  for (WeighedName& name : names)
    all += name.weight = std::exp(kSteepnessOfNames * (name.weight - best));
  for (WeighedName& name : names) name.weight /= all;
  names.resize(std::min(names.size(), most));
  return names;
}

}  // namespace korvel
