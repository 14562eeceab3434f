// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/striking/StruckPartials.h"

namespace korvel::precise {
namespace {

/// Frames from a stroke to where it is asked who sounds.
constexpr Frame kAround = 4;
/// Keeps means of nothing in bounds.
constexpr float kLeastShare = 0.02F;

}  // namespace

StruckPartials::StruckPartials(const FrameTable& activations, const Candidate& candidate)
    : m_pitch(candidate.pitch) {
  const auto sharesAt = [&](Frame frame) {
    return sharesOfPartials(activations.rowNear(frame), candidate.pitch);
  };
  m_shares = sharesAt(candidate.onset - kAround);
  const PartialShares after = sharesAt(candidate.onset + kAround);
  for (std::size_t i = 0; i < m_shares.size(); ++i)
    m_shares[i] = (m_shares[i] + after[i]) / 2 + kLeastShare;
}

}  // namespace korvel::precise
