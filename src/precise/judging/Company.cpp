// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/judging/Company.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <numeric>
#include <optional>
#include <tuple>

#include "precise/judging/NoteWeights.h"
#include "precise/judging/OnsetIndex.h"

namespace korvel::precise {
namespace {

/// Seconds after the end of a note at which it counts 1 / e of what it does at its end.
constexpr double kMemory = 0.15;
constexpr double kSmall = 0.05;
/// Odds are limited to those of this probability.
constexpr double kLeastProbability = 1e-4;

double seconds(Frame frames) { return static_cast<double>(frames) / kFramesPerSecond; }

double logarithmOfOdds(double probability) {
  const double p = std::clamp(probability, kLeastProbability, 1 - kLeastProbability);
  return std::log(p / (1 - p));
}

}  // namespace

Company::Company(std::span<const Candidate> candidates)
    : m_candidates(candidates), m_companions(candidates.size()) {}

std::vector<std::size_t> Company::inOrder() const {
  std::vector<std::size_t> order(m_candidates.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::ranges::sort(order, {}, [this](std::size_t i) {
    return std::tuple(m_candidates[i].onset, m_candidates[i].pitch);
  });
  return order;
}

/// Lets every pair meet whose times overlap, and every candidate the one of its pitch before it.
platform::Slices Company::meetAll() {
  const auto order = inOrder();
  std::vector<std::size_t> sounding;
  std::array<std::optional<std::size_t>, kPitches> last;
  double done = 0;
  for (const std::size_t i : order) {
    co_yield done++ / static_cast<double>(order.size());
    const Candidate& candidate = m_candidates[i];
    std::erase_if(sounding, [&](std::size_t j) { return m_candidates[j].end <= candidate.onset; });
    for (const std::size_t j : sounding) {
      meet(i, j);
      meet(j, i);
    }
    sounding.push_back(i);
    if (const auto j = last[candidate.pitch]) {
      const double gap = seconds(candidate.onset - m_candidates[*j].end);
      m_companions[i].before = m_candidates[*j].probability * std::exp(-gap / kMemory);
    }
    last[candidate.pitch] = i;
  }
  findTexture();
}

void Company::meet(std::size_t i, std::size_t other) {
  const Candidate& candidate = m_candidates[i];
  const Candidate& companion = m_candidates[other];
  Companions& found = m_companions[i];
  const Frame common =
      std::min(candidate.end, companion.end) - std::max(candidate.onset, companion.onset);
  const double counted = companion.probability * static_cast<double>(common) /
                         static_cast<double>(candidate.end - candidate.onset);
  const double strength = companion.probability * companion.peak;
  found.all += counted;
  if (companion.peak > candidate.peak) found.louder += counted;
  if (std::abs(candidate.onset - companion.onset) <= OnsetIndex::kNear)
    found.together += companion.probability;
  found.strongest = std::max(found.strongest, counted * companion.peak);
  const auto raise = [](double& value, double by) { value = std::max(value, by); };
  switch (static_cast<int>(companion.pitch) - static_cast<int>(candidate.pitch)) {
    case -12:
      raise(found.octaveBelow, counted);
      raise(found.strengthBelow, strength);
      break;
    case 12:
      raise(found.octaveAbove, counted);
      raise(found.strengthAbove, strength);
      break;
    case -19:
    case -24:
    case -28:
    case -31:
      raise(found.farBelow, counted);
      break;
    case 19:
    case 24:
    case 28:
      raise(found.farAbove, counted);
      break;
    case -1:
    case 1:
      raise(found.beside, counted);
      break;
    default:
      break;
  }
}

void Company::findTexture() {
  Frame end = 0;
  double sum = 0;
  for (const Candidate& candidate : m_candidates) {
    end = std::max(end, candidate.end);
    sum += candidate.probability * static_cast<double>(candidate.end - candidate.onset);
  }
  // What the number of notes changes by at each frame.
  std::vector<double> changes(static_cast<std::size_t>(end) + 1);
  for (const Candidate& candidate : m_candidates) {
    changes[static_cast<std::size_t>(candidate.onset)] += candidate.probability;
    changes[static_cast<std::size_t>(candidate.end)] -= candidate.probability;
  }
  double sounding = 0;
  double frames = 0;
  for (const double change : changes) {
    sounding += change;
    frames += std::min(sounding, 1.0);
  }
  m_texture = sum / std::max(1.0, frames);
}

void Company::add(std::size_t i, Features<NoteFeature>& known) const {
  using enum NoteFeature;
  const Companions& found = m_companions[i];
  const double peak = m_candidates[i].peak;
  known[Odds] = logarithmOfOdds(m_candidates[i].probability);
  known[LikelyOctaveBelow] = found.octaveBelow;
  known[LikelyOctaveAbove] = found.octaveAbove;
  known[LikelyFarBelow] = found.farBelow;
  known[LikelyFarAbove] = found.farAbove;
  known[LikelyPolyphony] = found.all;
  known[LoudestCompany] = std::log((found.strongest + kSmall) / peak);
  known[LikelyChord] = found.together;
  known[Texture] = m_texture;
  known[LikelyBefore] = found.before;
  known[LikelyBeside] = found.beside;
  known[StrengthAbove] = std::log((found.strengthAbove + kSmall) / peak);
  known[StrengthBelow] = std::log((found.strengthBelow + kSmall) / peak);
  known[LikelyLouder] = found.louder;
}

double probabilityInCompany(const Features<NoteFeature>& known) {
  std::array<float, static_cast<std::size_t>(NoteFeature::Count) - 1> inputs;
  std::ranges::transform(known.values().subspan(1), inputs.begin(),
                         [](double value) { return static_cast<float>(value); });
  const double odds =
      logOdds(companyTerms(), known) + static_cast<double>(logOdds(noteWeights(), inputs));
  return 1 / (1 + std::exp(-odds));
}

}  // namespace korvel::precise
