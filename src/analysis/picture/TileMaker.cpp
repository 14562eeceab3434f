// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/picture/TileMaker.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cassert>
#include <cmath>
#include <limits>

#include "precise/Intake.h"

namespace korvel {
namespace {

using precise::Frame;

/// Raises the partials of a string about as much as they fall off.
constexpr double kDecibelsOfOctave = 3;
constexpr double kBinsOfOctave = 12.0 * precise::kBinsPerSemitone;
/// 20 log10(2), what a doubled magnitude has more.
constexpr double kDecibelsOfDoubling = 6.0206;

/// Within a hundredth, for a finite value > 0: the exponent, and a parabola for the rest.
float roughLog2(float value) {
  const auto bits = std::bit_cast<std::uint32_t>(value);
  const auto exponent = static_cast<float>(static_cast<int>(bits >> 23U) - 127);
  const float rest = std::bit_cast<float>((bits & 0x7FFFFFU) | 0x3F800000U);
  return exponent + (-0.344845F * rest + 2.024658F) * rest - 1.674873F;
}

std::array<float, SoundTile::kBins> raises() {
  std::array<float, SoundTile::kBins> shades{};
  for (std::size_t bin = 0; bin < shades.size(); ++bin)
    shades[bin] = static_cast<float>(255 + static_cast<double>(bin) / kBinsOfOctave *
                                               kDecibelsOfOctave / SoundTile::kDecibelsOfShade);
  return shades;
}

void toShades(const precise::BinRow& magnitudes, std::uint8_t* shades) {
  static const auto kRaised = raises();
  constexpr auto kShadesOfDoubling =
      static_cast<float>(kDecibelsOfDoubling / SoundTile::kDecibelsOfShade);
  constexpr float kSilence = 1e-9F;
  for (std::size_t bin = 0; bin < magnitudes.size(); ++bin) {
    const float shade =
        kRaised[bin] + kShadesOfDoubling * roughLog2(std::max(magnitudes[bin], kSilence));
    shades[bin] = static_cast<std::uint8_t>(std::clamp(shade, 0.0F, 255.0F));
  }
}

std::int16_t toSample(float value) {
  constexpr float kMost = std::numeric_limits<std::int16_t>::max();
  if (!std::isfinite(value)) return 0;
  return static_cast<std::int16_t>(std::clamp(value * (kMost + 1), -kMost, kMost));
}

std::vector<SoundTile::Peak> peaksOf(std::span<const float> samples) {
  std::vector<SoundTile::Peak> peaks;
  for (; !samples.empty(); samples = samples.subspan(SoundTile::kSamplesOfColumn)) {
    const auto [low, high] = std::ranges::minmax(samples.first(SoundTile::kSamplesOfColumn));
    peaks.push_back({toSample(low), toSample(high)});
  }
  return peaks;
}

precise::Recording recordingOf(std::span<const float> samples) {
  precise::Recording recording;
  precise::Intake intake;
  recording.add(intake.add(samples));
  recording.add(intake.finish());
  recording.finish();
  return recording;
}

std::uint8_t mean(std::uint8_t a, std::uint8_t b) {
  return static_cast<std::uint8_t>((a + b + 1) / 2);
}

}  // namespace

SoundTile TileMaker::ofSamples(std::span<const float> samples) {
  assert(samples.size() == SoundTile::kSamples + 2 * kMargin);
  SoundTile tile;
  tile.peaks = peaksOf(samples.subspan(kMargin, SoundTile::kSamples));
  tile.shades.resize(SoundTile::kColumns * SoundTile::kBins);
  shade(recordingOf(samples), tile);
  return tile;
}

void TileMaker::shade(const precise::Recording& recording, SoundTile& tile) {
  constexpr auto kFirst = static_cast<Frame>(kMargin / SoundTile::kSamplesOfColumn);
  for (std::size_t column = 0; column < SoundTile::kColumns; column += 2) {
    m_frontEnd.look(recording, kFirst + static_cast<Frame>(column));
    for (const std::size_t which : {0U, 1U})
      toShades(m_frontEnd.spectrum(which), &tile.shades[(column + which) * SoundTile::kBins]);
  }
}

SoundTile TileMaker::samplesOf(std::span<const float> samples) {
  SoundTile tile;
  tile.samples.resize(samples.size());
  std::ranges::transform(samples, tile.samples.begin(), toSample);
  return tile;
}

SoundTile TileMaker::halved(const SoundTile& first, const SoundTile* second) {
  constexpr std::size_t kHalf = SoundTile::kColumns / 2;
  SoundTile tile;
  tile.shades.resize(first.shades.size());
  tile.peaks.resize(SoundTile::kColumns);
  for (std::size_t column = 0; column < (second ? SoundTile::kColumns : kHalf); ++column) {
    const SoundTile& of = column < kHalf ? first : *second;
    const std::size_t from = 2 * (column % kHalf);
    const std::uint8_t* shades = &of.shades[from * SoundTile::kBins];
    for (std::size_t bin = 0; bin < SoundTile::kBins; ++bin)
      tile.shades[column * SoundTile::kBins + bin] =
          mean(shades[bin], shades[bin + SoundTile::kBins]);
    tile.peaks[column] = {std::min(of.peaks[from].low, of.peaks[from + 1].low),
                          std::max(of.peaks[from].high, of.peaks[from + 1].high)};
  }
  return tile;
}

}  // namespace korvel
