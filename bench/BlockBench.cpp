// SPDX-License-Identifier: GPL-3.0-or-later
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstddef>
#include <numbers>
#include <vector>

#include "analysis/spectrum/QBFFTGuitar.h"
#include "platform/sound/SampleRate.h"
#include "support/store/StandardStore.h"

namespace korvel {
namespace {

/// A strummed open E chord: six strings with four overtones each.
std::vector<double> strum() {
  std::vector<double> samples(QBFFT::m_numSamples);
  for (const double string : {82.41, 123.47, 164.82, 207.65, 246.94, 329.63})
    for (int overtone = 1; overtone <= 5; ++overtone)
      for (std::size_t n = 0; n < samples.size(); ++n)
        samples[n] += 2000.0 / overtone *
                      std::sin(2 * std::numbers::pi * overtone * string * static_cast<double>(n) /
                               platform::kSampleRate);
  return samples;
}

/// Window, transform, magnitudes and tones with their places; at most twice bareTransform.
void wholeBlock(benchmark::State& state) {
  const test::StandardStore store;
  const std::vector<double> samples = strum();
  for (auto _ : state) {
    QBFFTGuitar spectrum(samples, 0);
    spectrum.fft();
    benchmark::DoNotOptimize(spectrum.frequencies(store.standard()).size());
  }
  QBFFTGuitar spectrum(samples, 0);
  spectrum.fft();
  state.counters["tones"] = static_cast<double>(spectrum.frequencies(store.standard()).size());
}
BENCHMARK(wholeBlock)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace korvel
