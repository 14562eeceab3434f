// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/seeing/Levels.h"

#include <algorithm>
#include <cmath>

#include "music/ConcertPitch.h"
#include "precise/judging/Quantile.h"
#include "precise/seeing/Power.h"
#include "precise/seeing/VectorClones.h"

namespace korvel::precise {
namespace {

/// The background is looked at in every fourth frame.
constexpr std::size_t kFloorStep = 4;
constexpr double kFloorShare = 0.10;
/// Of a long recording, in so many frames of each window: what is kept of those before is as much.
constexpr std::size_t kStepOfWindows = 128;
/// Bins on each side that a bin's background is compared with: three semitones.
constexpr std::size_t kFloorSide = 9;
constexpr double kRefShare = 0.98;
/// Linear magnitudes grow with the frequency to this power; compressed ones to its 0.4-fold.
constexpr double kEmphasis = 0.625;
/// Below, nothing was recorded but the rounding to 16 bits: -100 dB of full scale.
constexpr double kSilence = 1e-5;
/// Below this share of the recording's amplitude, what is seen is the leakage of what is not.
constexpr double kLeakage = 1e-3;

/// Bins that are looked at together.
constexpr std::size_t kTogether = 16;
/// Work is done this many rows of a table at a time.
constexpr std::size_t kRowsOfSlice = 1024;
constexpr double kShareOfFloor = 0.6;
constexpr double kShareOfLoudest = 0.15;
constexpr double kShareOfResonances = 0.1;
/// Resonances are looked for in every eighth frame whose loudest partial has this share of that of
/// the recording.
constexpr std::size_t kResonanceStep = 8;
constexpr double kSounding = 0.1;

double share(std::size_t done, std::size_t all) {
  return static_cast<double>(done) / static_cast<double>(all);
}

BinRow emphasisFactors() {
  BinRow factors;
  for (std::size_t k = 0; k < kBins; ++k)
    factors[k] =
        static_cast<float>(std::pow(binCentre(k, kBinsPerSemitone) / kHertzOfConcertA, kEmphasis));
  return factors;
}

const BinRow& emphasis() {
  static const BinRow factors = emphasisFactors();
  return factors;
}

KORVEL_VECTOR_CLONES
void subtract(float* values, const float* background, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    const float rest = values[i] - background[i];
    values[i] = rest > 0 ? rest : 0;
  }
}

KORVEL_VECTOR_CLONES
void scale(float* values, const float* factors, float factor, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) values[i] *= factors[i] * factor;
}

KORVEL_VECTOR_CLONES
float loudest(const float* values, const float* background, const float* factors,
              const float* gains) {
  float largest = 0;
  for (std::size_t i = 0; i < kBins; ++i) {
    const float level = (values[i] - background[i]) * factors[i] * gains[i];
    largest = level > largest ? level : largest;
  }
  return largest;
}

BinRow medians(const BinRow& values) {
  BinRow found;
  for (std::size_t k = 0; k < kBins; ++k) {
    const std::size_t first = k - std::min(k, kFloorSide);
    const std::size_t end = std::min(kBins, k + kFloorSide + 1);
    std::array<float, 2 * kFloorSide + 1> near;
    std::copy(values.begin() + first, values.begin() + end, near.begin());
    found[k] = quantile(std::span(near).first(end - first), 0.5);
  }
  return found;
}

void keepRows(const FrameTable& spectra, std::vector<BinRow>& kept) {
  for (std::size_t t = 0; t < spectra.frames(); t += kStepOfWindows)
    std::ranges::copy(spectra.row(t), kept.emplace_back().begin());
}

}  // namespace

void emphasise(std::span<float, kBins> magnitudes, double ref) {
  scale(magnitudes.data(), emphasis().data(), static_cast<float>(1 / ref), kBins);
  compress(magnitudes);
}

platform::Slices Levels::measure(const FrameTable& spectra, double power, Earlier& earlier) {
  platform::Slices floor = measureFloor(spectra, earlier.rows);
  while (floor.next()) co_yield floor.done() * kShareOfFloor;
  m_floor = medians(m_floor);
  const auto after = [](double before, double part, double done) { return before + part * done; };
  platform::Slices loudest = measureLoudest(spectra);
  while (loudest.next()) co_yield after(kShareOfFloor, kShareOfLoudest, loudest.done());
  m_ref = quantile(m_loudest, kRefShare);
  platform::Slices resonances = findResonances(spectra, earlier.rows);
  while (resonances.next())
    co_yield after(kShareOfFloor + kShareOfLoudest, kShareOfResonances, resonances.done());
  if (!m_resonances.areNone()) loudest = measureLoudest(spectra);
  while (loudest.next()) co_yield after(1 - kShareOfLoudest, kShareOfLoudest, loudest.done());
  m_loudest = earlier.loudest.join(m_loudest);
  const double ref = quantile(m_loudest, kRefShare);
  m_ref = ref < std::max(kSilence, kLeakage * std::sqrt(power)) ? 0 : ref;
  m_loudest = {};
  keepRows(spectra, earlier.rows);
}

/// Several bins together, as they lie together in the table.
platform::Slices Levels::measureFloor(const FrameTable& spectra,
                                      const std::vector<BinRow>& earlier) {
  static_assert(kBins % kTogether == 0);
  const std::size_t step = earlier.empty() ? kFloorStep : kStepOfWindows;
  const std::size_t own = (spectra.frames() + step - 1) / step;
  const std::size_t height = own + earlier.size();
  std::vector<float> columns(kTogether * height);
  for (std::size_t first = 0; first < kBins; first += kTogether) {
    for (std::size_t i = 0; i < height; ++i) {
      const float* row = (i < own ? spectra.row(i * step).data() : earlier[i - own].data()) + first;
      for (std::size_t j = 0; j < kTogether; ++j) columns[j * height + i] = row[j];
      if (i % kRowsOfSlice == 0) co_yield share(first * height + i * kTogether / 2, kBins * height);
    }
    for (std::size_t j = 0; j < kTogether; ++j) {
      m_floor[first + j] = quantile(std::span(columns).subspan(j * height, height), kFloorShare);
      co_yield share(2 * first + kTogether + j, 2 * kBins);
    }
  }
}

platform::Slices Levels::measureLoudest(const FrameTable& spectra) {
  m_loudest.resize(spectra.frames());
  for (std::size_t t = 0; t < spectra.frames(); ++t) {
    m_loudest[t] = loudest(spectra.row(t).data(), m_floor.data(), emphasis().data(),
                           m_resonances.gains().data());
    if (t % kRowsOfSlice == 0) co_yield share(t, spectra.frames());
  }
}

platform::Slices Levels::findResonances(const FrameTable& spectra,
                                        const std::vector<BinRow>& earlier) {
  const std::size_t step = earlier.empty() ? kResonanceStep : kStepOfWindows;
  for (const BinRow& row : earlier) lookForResonances(row);
  for (std::size_t t = 0; t < spectra.frames(); t += step) {
    lookForResonances(spectra.row(t));
    if (t % kRowsOfSlice == 0) co_yield 0.5 * share(t, spectra.frames());
  }
  const auto frames = static_cast<double>(step * m_resonances.frames());
  platform::Slices settling = m_resonances.settle(frames / kFramesPerSecond);
  while (settling.next()) co_yield 0.5 + 0.5 * settling.done();
}

void Levels::lookForResonances(std::span<const float> magnitudes) {
  if (m_ref == 0) return;
  BinRow levels;
  std::ranges::copy(magnitudes, levels.begin());
  subtract(levels.data(), m_floor.data(), kBins);
  emphasise(levels, m_ref);
  if (std::ranges::max(levels) > std::pow(kSounding, kCompression)) m_resonances.look(levels);
}

void Levels::apply(std::span<float, kBins> magnitudes) const {
  subtract(magnitudes.data(), m_floor.data(), kBins);
  scale(magnitudes.data(), m_resonances.gains().data(), 1, kBins);
  emphasise(magnitudes, m_ref);
}

}  // namespace korvel::precise
