// SPDX-License-Identifier: GPL-3.0-or-later
#include <benchmark/benchmark.h>
#include <fftw3.h>

#include <cmath>
#include <cstddef>
#include <memory>

#include "platform/numerics/FourierTransform.h"

namespace korvel {
namespace {

constexpr std::size_t blockSize = 16384;

double sampleAt(std::size_t n) { return 10000 * std::sin(0.05 * static_cast<double>(n)); }

/// The yardstick of everything that is done for one block of samples.
void bareTransform(benchmark::State& state) {
  const std::unique_ptr<double[], decltype(&fftw_free)> input(fftw_alloc_real(blockSize),
                                                              fftw_free);
  const std::unique_ptr<fftw_complex[], decltype(&fftw_free)> output(
      fftw_alloc_complex(blockSize / 2 + 1), fftw_free);
  const fftw_plan plan =
      fftw_plan_dft_r2c_1d(static_cast<int>(blockSize), input.get(), output.get(), FFTW_ESTIMATE);
  for (std::size_t n = 0; n < blockSize; ++n) input[n] = sampleAt(n);
  for (auto _ : state) {
    fftw_execute(plan);
    benchmark::ClobberMemory();
  }
  fftw_destroy_plan(plan);
}
BENCHMARK(bareTransform)->Unit(benchmark::kMicrosecond);

void realTransform(benchmark::State& state) {
  platform::RealTransform transform(blockSize);
  for (std::size_t n = 0; n < blockSize; ++n) transform.input()[n] = sampleAt(n);
  for (auto _ : state) {
    transform.run();
    benchmark::ClobberMemory();
  }
}
BENCHMARK(realTransform)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace korvel
