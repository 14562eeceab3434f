// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/striking/OnsetInputs.h"

#include <algorithm>
#include <cassert>
#include <cmath>

#include "precise/striking/StruckPartials.h"

namespace korvel::precise {
namespace {

/// Keep logarithms and ratios of nothing in bounds.
constexpr float kSmall = 0.05F;
constexpr float kSmallRise = 0.02F;

}  // namespace

OnsetInputs::OnsetInputs(const FrameTable& activations, const FrameTable& turns, const Flux& flux,
                         const Candidate& note)
    : m_pitch(static_cast<float>(note.pitch) / kPitches), m_reattack(note.reattack ? 1.0F : 0.0F) {
  const StruckPartials partials(activations, note);
  for (std::size_t i = 0; i < kFrames; ++i) {
    const Frame t = note.onset + static_cast<Frame>(i) - kReach - kAround;
    const auto turnOf = [row = turns.rowNear(t)](std::size_t bin) { return row[bin]; };
    const auto riseOf = [&](std::size_t bin) { return flux.at(bin, t); };
    std::size_t series = 0;
    m_seen[series++][i] =
        std::log((activations.rowNear(t)[note.pitch] + kSmall) / (note.peak + kSmall));
    for (const PartialGroup& group : kPartialGroups) {
      m_seen[series++][i] = std::log(partials.mean(group, riseOf) + kSmallRise);
      m_seen[series++][i] = partials.mean(group, turnOf);
    }
    m_seen[series++][i] = std::log(flux.high(t) + kSmallRise);
    m_seen[series++][i] = std::log(flux.overall(t) + kSmallRise);
  }
}

OnsetInputs::Inputs OnsetInputs::of(Frame offset) const {
  assert(std::abs(offset) <= kReach);
  Inputs inputs;
  float* next = inputs.data();
  for (const auto& series : m_seen)
    next = std::copy_n(series.begin() + (offset + kReach), kSeen, next);
  *next++ = static_cast<float>(offset);
  *next++ = m_pitch;
  *next++ = m_reattack;
  assert(next == inputs.data() + inputs.size());
  return inputs;
}

}  // namespace korvel::precise
