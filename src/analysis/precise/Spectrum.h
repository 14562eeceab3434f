// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "analysis/precise/SampleStore.h"
#include "platform/RealTransform.h"

namespace korvel::precise {

/// Magnitudes of a piece of sound under a Hann window, scaled so that a sine of amplitude 1 has
/// magnitude 1 at its frequency.
class Spectrum {
 public:
  /// A window of that many samples, followed by zeros up to the length of the transform.
  Spectrum(std::size_t window, std::size_t transform);

  /// The magnitudes with the window's middle at sample `centre`: bin k, of k * rate / transform Hz,
  /// for k in [0, transform / 2]. Valid until the next call.
  std::span<const float> around(const SampleStore& samples, std::ptrdiff_t centre);

 private:
  std::vector<float> m_window;
  platform::SingleRealTransform m_transform;
  std::vector<float> m_magnitudes;
};

}  // namespace korvel::precise
