// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/precise/OnsetIndex.h"

#include <algorithm>

namespace korvel::precise {

OnsetIndex::OnsetIndex(std::span<const Candidate> candidates) : m_byPitch(kPitches) {
  for (const Candidate& candidate : candidates) {
    m_onsets.push_back(candidate.onset);
    if (!candidate.reattack) m_newOnsets.push_back(candidate.onset);
    m_byPitch[candidate.pitch].push_back(candidate.onset);
  }
  std::ranges::sort(m_onsets);
  std::ranges::sort(m_newOnsets);
  for (std::vector<Frame>& onsets : m_byPitch) std::ranges::sort(onsets);
}

std::size_t OnsetIndex::countNear(const std::vector<Frame>& onsets, Frame frame) {
  const auto first = std::ranges::lower_bound(onsets, frame - kNear);
  const auto end = std::ranges::upper_bound(onsets, frame + kNear);
  return static_cast<std::size_t>(end - first);
}

std::size_t OnsetIndex::count(Frame frame) const { return countNear(m_onsets, frame); }

std::size_t OnsetIndex::countNew(Frame frame) const { return countNear(m_newOnsets, frame); }

bool OnsetIndex::contains(std::size_t pitch, Frame frame) const {
  return countNear(m_byPitch[pitch], frame) > 0;
}

}  // namespace korvel::precise
