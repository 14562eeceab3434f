// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/spectrum/QBFFT.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <stdexcept>
#include <utility>

#include "model/recorded/QBBlock.h"

namespace korvel {
namespace {

constexpr std::size_t kPooledBuffers = 4;
/// The thresholds of the system are stated for a transform that answers twice the plain one.
constexpr double kTransformGain = 2.0;

using Samples = std::array<double, QBFFT::m_numSamples>;

/// The Hamming window.
const Samples& window() {
  static const Samples values = [] {
    Samples filled;
    for (std::size_t n = 0; n < filled.size(); ++n) {
      const double phase = static_cast<double>(n) / static_cast<double>(filled.size());
      filled[n] = 0.54 - 0.46 * std::cos(2 * std::numbers::pi * phase);
    }
    return filled;
  }();
  return values;
}

/// Windows the samples in place and copies them into the transform in the same pass: a block fills
/// the processor's cache several times over.
void applyWindow(Samples& samples, std::span<double> copy) {
  const Samples& factors = window();
  for (std::size_t n = 0; n < samples.size(); ++n) copy[n] = samples[n] = samples[n] * factors[n];
}

std::unique_ptr<platform::RealTransform>& sharedSetup() {
  static std::unique_ptr<platform::RealTransform> setup;
  return setup;
}

}  // namespace

struct QBFFT::Buffers {
  Samples samples;
  Samples amps;
};

/// Buffers of finished blocks, kept for the next ones: a quarter of a megabyte fresh from the
/// system costs as much as the transform.
class QBFFT::Pool {
 public:
  static std::shared_ptr<Pool> shared() {
    static const auto pool = std::make_shared<Pool>();
    return pool;
  }

  std::unique_ptr<Buffers> take() {
    if (m_free.empty()) return std::make_unique<Buffers>();
    std::unique_ptr<Buffers> buffers = std::move(m_free.back());
    m_free.pop_back();
    std::fill(buffers->amps.begin() + kFirstBin, buffers->amps.begin() + kEndBin, 0.0);
    return buffers;
  }

  void giveBack(std::unique_ptr<Buffers> buffers) {
    if (m_free.size() < m_free.capacity()) m_free.push_back(std::move(buffers));
  }

  Pool() { m_free.reserve(kPooledBuffers); }

 private:
  std::vector<std::unique_ptr<Buffers>> m_free;
};

QBFFT::QBFFT(std::span<const double> samples, std::int64_t timestamp)
    : m_pool(Pool::shared()), m_timestamp(timestamp) {
  if (samples.size() > m_numSamples) throw std::out_of_range("more samples than a block has");
  m_buffers = m_pool->take();
  const auto end = std::ranges::copy(samples, m_buffers->samples.begin()).out;
  std::fill(end, m_buffers->samples.end(), 0.0);
}

QBFFT::~QBFFT() { m_pool->giveBack(std::move(m_buffers)); }

platform::RealTransform& QBFFT::setup() {
  auto& setup = sharedSetup();
  if (!setup) setup = std::make_unique<platform::RealTransform>(m_numSamples);
  return *setup;
}

void QBFFT::destroySetup() { sharedSetup().reset(); }

void QBFFT::fft() {
  platform::RealTransform& transform = setup();
  applyWindow(m_buffers->samples, transform.input());
  transform.run();
  const auto output = transform.output();
  for (std::size_t bin = kFirstBin; bin < kEndBin; ++bin) {
    const double re = output[bin].real();
    const double im = output[bin].imag();
    m_buffers->amps[bin] = kTransformGain * std::sqrt(re * re + im * im);
  }
}

std::span<const QBFrequency> QBFFT::frequencies(QBTuning* /*tuning*/) { return {}; }

std::span<const double> QBFFT::samples() const { return m_buffers->samples; }

std::span<const double> QBFFT::amps() const { return m_buffers->amps; }

void QBFFT::setBlock(QBBlock* block) { m_block = block; }

}  // namespace korvel
