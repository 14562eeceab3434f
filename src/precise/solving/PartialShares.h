// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <span>

namespace korvel::precise {

/// A partial in semitones above the fundamental, and about how strong it is.
struct Partial {
  std::size_t distance;
  float strength;
};
inline constexpr std::size_t kPartialCount = 8;
inline constexpr std::array<Partial, kPartialCount> kPartials{{{0, 1.0F},
                                                               {12, 0.9F},
                                                               {19, 0.8F},
                                                               {24, 0.7F},
                                                               {28, 0.5F},
                                                               {31, 0.5F},
                                                               {34, 0.4F},
                                                               {36, 0.4F}}};
/// A weight for each partial of a pitch.
using PartialShares = std::array<float, kPartialCount>;

/// Partials [begin, end).
struct PartialGroup {
  std::size_t begin;
  std::size_t end;
};
/// The low partials, which are stronger, and the others.
inline constexpr std::array<PartialGroup, 2> kPartialGroups{{{0, 3}, {3, kPartialCount}}};

/// How much of each partial is likely to be the pitch's own, by what else sounds. activations: of
/// all pitches.
PartialShares sharesOfPartials(std::span<const float> activations, std::size_t pitch);

}  // namespace korvel::precise
