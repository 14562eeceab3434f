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
/// There is one in double and one in single precision, which is about twice as fast.
template <class Real>
class BasicRealTransform {
 public:
  /// size > 0.
  explicit BasicRealTransform(std::size_t size);
  BasicRealTransform(BasicRealTransform&&) noexcept;
  BasicRealTransform& operator=(BasicRealTransform&&) noexcept;
  ~BasicRealTransform();

  void run();

  /// size values, zero at first; kept by run.
  std::span<Real> input();
  /// size / 2 + 1 values.
  std::span<const std::complex<Real>> output() const;

 private:
  struct State;
  std::unique_ptr<State> m_state;
};

using RealTransform = BasicRealTransform<double>;
using SingleRealTransform = BasicRealTransform<float>;

}  // namespace korvel::platform
