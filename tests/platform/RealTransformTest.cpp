// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/RealTransform.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <numbers>

namespace korvel::platform {
namespace {

/// The definition itself, for one bin.
std::complex<double> bin(std::span<const double> values, std::size_t k) {
  std::complex<double> sum;
  for (std::size_t n = 0; n < values.size(); ++n) {
    const auto turns =
        static_cast<double>(k * n % values.size()) / static_cast<double>(values.size());
    sum += values[n] * std::polar(1.0, -2 * std::numbers::pi * turns);
  }
  return sum;
}

TEST(RealTransform, isTheUnnormalisedForwardTransform) {
  RealTransform transform(16384);
  std::uint32_t seed = 1;
  for (double& value : transform.input()) {
    seed = seed * 1664525 + 1013904223;
    value = static_cast<double>(seed >> 16) - 32768.0;
  }
  transform.run();
  ASSERT_EQ(transform.output().size(), 8193U);
  for (const std::size_t k : {0U, 1U, 15U, 41U, 299U, 8191U, 8192U})
    EXPECT_LT(std::abs(transform.output()[k] - bin(transform.input(), k)), 1e-3) << k;
}

TEST(RealTransform, objectsOfOneSizeKeepTheirOwnValues) {
  RealTransform first(64);
  RealTransform second(64);
  first.input()[0] = 1;
  second.input()[0] = 2;
  RealTransform moved(std::move(first));
  for (int i = 0; i < 2; ++i) {
    moved.run();
    second.run();
    EXPECT_EQ(moved.output()[7], std::complex<double>(1, 0));
    EXPECT_EQ(second.output()[32], std::complex<double>(2, 0));
  }
}

}  // namespace
}  // namespace korvel::platform
