// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <complex>
#include <cstddef>
#include <memory>
#include <span>

namespace korvel::platform {

/// Forward discrete Fourier transform, unnormalised:
/// output[k] = sum over n of input[n] * exp(-2 pi i k n / size), for k in [0, size / 2] of real
/// values, whose other half mirrors the first, and for k in [0, size) of complex ones.
/// Made once and run for every block. The first object of a size plans the transform, which may
/// happen on any thread; each object then belongs to one thread at a time.
/// Single precision takes about half the time of double, and one complex transform less than two
/// real ones.
template <class Input>
class FourierTransform {
 public:
  using Real = decltype(std::abs(Input()));

  /// size > 0.
  explicit FourierTransform(std::size_t size);
  FourierTransform(FourierTransform&&) noexcept;
  FourierTransform& operator=(FourierTransform&&) noexcept;
  ~FourierTransform();

  void run();

  /// size values, zero at first; kept by run.
  std::span<Input> input();
  /// size / 2 + 1 values of real, size values of complex input.
  std::span<const std::complex<Real>> output() const;

 private:
  struct State;
  std::unique_ptr<State> m_state;
};

using RealTransform = FourierTransform<double>;
using SingleComplexTransform = FourierTransform<std::complex<float>>;

}  // namespace korvel::platform
