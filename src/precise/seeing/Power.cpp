// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/seeing/Power.h"

#include <bit>
#include <cstdint>

#include "precise/seeing/VectorClones.h"

namespace korvel::precise {
namespace {

constexpr std::int32_t kMantissaBits = 23;
constexpr std::int32_t kOne = std::bit_cast<std::int32_t>(1.0F);
/// Mantissas are taken from the root of a half to that of 2, so that the logarithm is small.
constexpr std::int32_t kRootHalf = std::bit_cast<std::int32_t>(0.70710678F);
/// Smaller results count as nothing.
constexpr float kLeastLogarithm = -120.0F;

/// log2, for normal numbers: the series of the area tangent of (x - 1) / (x + 1).
inline float binaryLogarithm(float x) {
  const std::int32_t offset = std::bit_cast<std::int32_t>(x) - kRootHalf;
  const std::int32_t exponent = offset >> kMantissaBits;
  const auto mantissa =
      std::bit_cast<float>(std::bit_cast<std::int32_t>(x) - (exponent << kMantissaBits));
  const float t = (mantissa - 1.0F) / (mantissa + 1.0F);
  const float t2 = t * t;
  const float series =
      2.8853901F + t2 * (0.96179669F + t2 * (0.57707802F + t2 * (0.41219859F + t2 * 0.32059890F)));
  return static_cast<float>(exponent) + t * series;
}

/// 2^x, for x above kLeastLogarithm and below 120: the power of the nearest whole number, times the
/// exponential series of the rest.
inline float binaryPower(float x) {
  const float shifted = x + 128.5F;
  const std::int32_t whole = static_cast<std::int32_t>(shifted) - 128;
  const float f = x - static_cast<float>(whole);
  const float series =
      1.0F +
      f * (0.69314718F +
           f * (0.24022651F + f * (0.055504109F + f * (0.0096181291F +
                                                       f * (0.0013333558F + f * 0.00015403530F)))));
  return series * std::bit_cast<float>(kOne + (whole << kMantissaBits));
}

KORVEL_VECTOR_CLONES
void compressAll(float* values, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    const float logarithm = static_cast<float>(kCompression) * binaryLogarithm(values[i]);
    const float power = binaryPower(logarithm > kLeastLogarithm ? logarithm : kLeastLogarithm);
    values[i] = values[i] > 1e-30F ? power : 0.0F;
  }
}

}  // namespace

void compress(std::span<float> values) { compressAll(values.data(), values.size()); }

}  // namespace korvel::precise
