// SPDX-License-Identifier: GPL-3.0-or-later
#include "rhythm/WishedLimits.h"

#include <algorithm>
#include <iterator>

namespace korvel::rhythm {
namespace {

/// A tempo is as wished when it is within this factor.
constexpr double kNearTempo = 1.08;
/// The lengths of beats that a search finds well, and those of a reading, in seconds.
constexpr double kShortestFound = 0.29;
constexpr double kLongestFound = 1.33;
constexpr double kShortestBeat = 0.15;
constexpr double kLongestBeat = 3;
/// Seconds before the first and after the last note in which there may be beats.
constexpr double kAround = 1.5;
constexpr std::size_t kFewestTaps = 4;
constexpr int kFewestBeats = 2;

}  // namespace

WishedLimits::WishedLimits(const Wishes& wishes, double from, double to)
    : m_fixed(wishes.fixedBeats) {
  const auto isOutside = [&](double time) {
    return !(time > from - kAround && time < to + kAround);
  };
  std::erase_if(m_fixed, isOutside);
  std::ranges::sort(m_fixed);
  m_limits.fixedBeats = m_fixed;
  m_limits.feel = wishes.feel;
  if (wishes.barLine && !isOutside(*wishes.barLine)) m_limits.barLine = wishes.barLine;
  if (wishes.metre) setMetre(*wishes.metre);
  if (wishes.taps.size() >= kFewestTaps) {
    setTaps(wishes.taps);
  } else if (wishes.tempo) {
    setTempo(*wishes.tempo);
  }
}

void WishedLimits::setMetre(const Metre& metre) {
  m_limits.metre = metre;
  m_limits.metre->beats = std::clamp(metre.beats, kFewestBeats, static_cast<int>(kMostBeats));
}

void WishedLimits::setTempo(double tempo) {
  const double length = std::clamp(60 / std::max(tempo, 1.0), kShortestBeat, kLongestBeat);
  m_limits.lengths = {length / kNearTempo, length * kNearTempo};
  double found = length;
  while (found > kLongestFound) found /= 2;
  while (found < kShortestFound) found *= 2;
  m_searched = {found / kNearTempo, found * kNearTempo};
  if (found == length) m_known = m_fixed;
}

void WishedLimits::setTaps(const std::vector<double>& taps) {
  BeatTrack track = taps;
  std::ranges::sort(track);
  setTempo(60 / std::max(medianBeat(track), 1e-3));
  if (m_limits.lengths.shortest != m_searched.shortest) return;
  m_limits.keepsBeats = true;
  m_known.clear();
  std::ranges::merge(m_fixed, track, std::back_inserter(m_known));
}

bool WishedLimits::allows(Division division) const {
  const bool ternary = (m_limits.metre && m_limits.metre->compound) ||
                       (m_limits.feel && *m_limits.feel != Feel::straight);
  const bool binary = !ternary && m_limits.feel;
  if (division == Division::ternary) return !binary;
  return !ternary;
}

}  // namespace korvel::rhythm
