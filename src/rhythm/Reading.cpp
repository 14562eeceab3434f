// SPDX-License-Identifier: GPL-3.0-or-later
#include "rhythm/Reading.h"

#include <algorithm>
#include <cmath>

namespace korvel::rhythm {

double Reading::tempo() const {
  if (beats.size() < 2) return 0;
  std::vector<double> lengths;
  for (std::size_t i = 0; i + 1 < beats.size(); ++i) lengths.push_back(beats[i + 1] - beats[i]);
  const auto middle = lengths.begin() + static_cast<std::ptrdiff_t>(lengths.size() / 2);
  std::ranges::nth_element(lengths, middle);
  return 60 / *middle;
}

double Reading::secondsOf(double tick) const {
  if (beats.size() < 2) return 0;
  const double beat = tick / kTicksOfBeat + static_cast<double>(firstBar);
  const double below = std::clamp(std::floor(beat), 0.0, static_cast<double>(beats.size() - 2));
  const auto i = static_cast<std::size_t>(below);
  return beats[i] + (beat - below) * (beats[i + 1] - beats[i]);
}

double Reading::tickOf(double seconds) const {
  if (beats.size() < 2) return 0;
  const auto after = std::ranges::upper_bound(beats, seconds) - beats.begin();
  const auto last = static_cast<std::ptrdiff_t>(beats.size() - 2);
  const auto i = static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(after - 1, 0, last));
  const double share = (seconds - beats[i]) / (beats[i + 1] - beats[i]);
  return (static_cast<double>(i) - static_cast<double>(firstBar) + share) * kTicksOfBeat;
}

double Rhythm::probabilityOf(double behind) const {
  double all = 1;
  for (const Alternative& other : others) all += std::exp(-other.behind);
  return std::exp(-behind) / all;
}

bool hasWishedTempo(const Reading& reading, const Wishes& wishes) {
  constexpr double kNear = 1.1;  // a little more than wishes are taken for
  if (!wishes.tempo || wishes.taps.size() >= 4 || reading.beats.size() < 2) return true;
  const double factor = reading.tempo() / *wishes.tempo;
  return factor < kNear && factor * kNear > 1;
}

}  // namespace korvel::rhythm
