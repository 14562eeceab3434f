// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/chords/TuningsToTry.h"

#include <algorithm>
#include <cmath>

#include "precise/Analysis.h"

namespace korvel {
namespace {

using fingering::Strings;

/// In cents. A within 434 and 446 Hz is what guitars that play Eb are tuned to; beyond that nobody
/// went by a fork, and Standard is so much more usual that it is the likelier one although its A
/// lies further off.
constexpr double kNearConcertA = 25;

/// By how many semitones the strings would sound higher than they are tuned.
int movedAt(double offset) {
  if (std::abs(offset) <= kNearConcertA) return 0;
  return offset > 0 ? -1 : 1;
}

/// Nobody hears how deep others go.
bool isHeard(const OpenPitches& sounding) {
  return std::ranges::min(sounding) >= precise::Analysis::kLowestPitch;
}

void add(const Strings& strings, std::vector<Strings>& all) {
  const OpenPitches sounding = strings.sounding();
  if (isHeard(sounding) && std::ranges::find(all, sounding, &Strings::sounding) == all.end())
    all.push_back(strings);
}

}  // namespace

std::vector<Strings> tuningsToTry(const OpenPitches& thought, std::span<const OpenPitches> tunings,
                                  double offset) {
  std::vector<Strings> all;
  const int moved = movedAt(offset);
  if (moved != 0) add({thought, moved}, all);
  for (const OpenPitches& tuning : tunings) add({tuning}, all);
  return all;
}

}  // namespace korvel
