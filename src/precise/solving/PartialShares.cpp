// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/solving/PartialShares.h"

#include "precise/Scale.h"

namespace korvel::precise {

PartialShares sharesOfPartials(std::span<const float> activations, std::size_t pitch) {
  /// Keeps shares of nothing in bounds.
  constexpr float kLeast = 0.02F;
  PartialShares shares;
  for (std::size_t i = 0; i < kPartialCount; ++i) {
    const std::size_t place = pitch + kPartials[i].distance;
    float all = kLeast;
    for (const Partial& other : kPartials)
      if (place >= other.distance && place - other.distance < kPitches)
        all += other.strength * activations[place - other.distance];
    shares[i] = kPartials[i].strength * activations[pitch] / all;
  }
  return shares;
}

}  // namespace korvel::precise
