// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/judging/Candidate.h"

#include <algorithm>
#include <tuple>

namespace korvel::precise {
namespace {

constexpr std::ptrdiff_t kStrings = 6;
/// Frames after its onset at which a candidate is compared with others.
constexpr Frame kComparedAfter = 6;

}  // namespace

void sortByOnset(std::vector<Candidate>& candidates) {
  std::ranges::sort(candidates, {},
                    [](const Candidate& c) { return std::tuple(c.onset, c.pitch, c.end); });
}

std::vector<Candidate> keepSixStrongest(std::vector<Candidate>& candidates) {
  std::vector<Candidate> kept;
  std::vector<Candidate> removed;
  std::vector<Candidate> sounding;
  auto next = candidates.cbegin();
  for (const Candidate& candidate : candidates) {
    const Frame moment = candidate.onset + kComparedAfter;
    for (; next != candidates.cend() && next->onset <= moment; ++next) sounding.push_back(*next);
    std::erase_if(sounding, [moment](const Candidate& c) { return c.end <= moment; });
    const auto stronger = std::ranges::count_if(
        sounding, [&candidate](const Candidate& c) { return c.peak > candidate.peak; });
    (stronger < kStrings ? kept : removed).push_back(candidate);
  }
  candidates = std::move(kept);
  return removed;
}

}  // namespace korvel::precise
