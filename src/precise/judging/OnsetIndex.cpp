// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/judging/OnsetIndex.h"

#include <algorithm>
#include <array>

namespace korvel::precise {
namespace {

/// In semitones: where a pitch has its overtones, and so those pitches above which it may be
/// mistaken for a note.
constexpr std::array<std::size_t, 7> kPartials = {12, 19, 24, 28, 31, 34, 36};

}  // namespace

OnsetIndex::OnsetIndex(std::span<const Candidate> candidates)
    : m_byPitch(kPitches), m_newByPitch(kPitches) {
  for (const Candidate& candidate : candidates) {
    m_onsets.push_back(candidate.onset);
    m_byPitch[candidate.pitch].push_back(candidate.onset);
    if (candidate.reattack) continue;
    m_newOnsets.push_back(candidate.onset);
    m_newByPitch[candidate.pitch].push_back(candidate.onset);
  }
  std::ranges::sort(m_onsets);
  std::ranges::sort(m_newOnsets);
  for (Onsets& onsets : m_byPitch) std::ranges::sort(onsets);
  for (Onsets& onsets : m_newByPitch) std::ranges::sort(onsets);
}

std::size_t OnsetIndex::countNear(const Onsets& onsets, Frame frame) {
  const auto first = std::ranges::lower_bound(onsets, frame - kNear);
  const auto end = std::ranges::upper_bound(onsets, frame + kNear);
  return static_cast<std::size_t>(end - first);
}

bool OnsetIndex::covers(const std::vector<Onsets>& byPitch, std::size_t pitch, Frame frame) {
  return std::ranges::any_of(kPartials, [&](std::size_t semitones) {
    return pitch >= semitones && countNear(byPitch[pitch - semitones], frame) > 0;
  });
}

bool OnsetIndex::isCovered(std::size_t pitch, Frame frame) const {
  return covers(m_byPitch, pitch, frame);
}

bool OnsetIndex::isCoveredByNew(std::size_t pitch, Frame frame) const {
  return covers(m_newByPitch, pitch, frame);
}

}  // namespace korvel::precise
