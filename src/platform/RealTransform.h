// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <complex>
#include <cstddef>
#include <memory>
#include <span>

namespace korvel::platform {

/// Forward discrete Fourier transform of real values, unnormalised:
/// output[k] = sum over n of input[n] * exp(-2 pi i k n / size), for k in [0, size / 2].
/// Made once and run for every block. The first object of a size plans the transform, which may
/// happen on any thread; each object then belongs to one thread at a time.
class RealTransform {
 public:
  /// size > 0.
  explicit RealTransform(std::size_t size);
  RealTransform(RealTransform&&) noexcept;
  RealTransform& operator=(RealTransform&&) noexcept;
  ~RealTransform();

  void run();

  /// size values, zero at first; kept by run.
  std::span<double> input();
  /// size / 2 + 1 values.
  std::span<const std::complex<double>> output() const;

 private:
  struct State;
  std::unique_ptr<State> m_state;
};

}  // namespace korvel::platform
