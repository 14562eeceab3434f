// SPDX-License-Identifier: GPL-3.0-or-later
#include "rhythm/judging/DivisionUse.h"

#include <algorithm>
#include <cmath>

namespace korvel::rhythm {

Feel DivisionUse::ternaryFeel() const {
  if (firstThird + secondThird < 0.02) return Feel::straight;
  const bool swings = secondThird > 0.08 && firstThird < 0.5 * secondThird;
  return swings ? Feel::swing : Feel::triplets;
}

DivisionUse useOf(std::span<const Onset> onsets, std::span<const Phase> phases) {
  DivisionUse use;
  double all = 0;
  std::size_t struck = 0, last = phases.front().beat - 1;
  for (std::size_t i = 0; i < onsets.size(); ++i) {
    const double tick = static_cast<double>(phases[i].share) * kTicksOfBeat;
    const double weight = onsets[i].weight;
    all += weight;
    if (std::abs(tick - 4) <= 1) use.firstThird += weight;
    if (std::abs(tick - 6) < 1) use.half += weight;
    if (std::abs(tick - 8) <= 1) use.secondThird += weight;
    if (std::abs(tick - 2.5) <= 1 || std::abs(tick - 9.5) <= 1) use.fine += weight;
    const std::size_t beat = phases[i].beat + (tick > 11);
    if ((tick >= 1 && tick <= 11) || beat == last) continue;
    ++struck;
    last = beat;
  }
  for (double* part : {&use.firstThird, &use.half, &use.secondThird, &use.fine}) *part /= all;
  const std::size_t beats = phases.back().beat - phases.front().beat + 1;
  use.emptyBeats = 1 - std::min(1.0, static_cast<double>(struck) / static_cast<double>(beats));
  return use;
}

}  // namespace korvel::rhythm
