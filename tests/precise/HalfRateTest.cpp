// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/seeing/HalfRate.h"

#include "support/Testing.h"

namespace korvel::precise {
namespace {

using Sound = std::vector<float>;

/// Cycles for each sample.
Sound sine(double frequency, std::size_t count) {
  Sound sound(count);
  for (std::size_t i = 0; i < count; ++i)
    sound[i] =
        static_cast<float>(std::sin(2 * std::numbers::pi * frequency * static_cast<double>(i)));
  return sound;
}

Sound halved(const Sound& sound, std::size_t piece) {
  HalfRate halver;
  Sound found;
  const auto take = [&found](std::span<const float> values) {
    found.insert(found.end(), values.begin(), values.end());
  };
  for (std::size_t i = 0; i < sound.size(); i += piece)
    take(halver.add(std::span(sound).subspan(i, std::min(piece, sound.size() - i))));
  take(halver.finish());
  return found;
}

double distance(const Sound& a, const Sound& b, std::size_t margin) {
  double largest = 0;
  for (std::size_t i = margin; i + margin < a.size(); ++i)
    largest = std::max(largest, static_cast<double>(std::abs(a[i] - b[i])));
  return largest;
}

TEST(HalfRate, keepsWhatFitsAndDropsWhatWouldFoldDown) {
  // Sample j of the answer stands where sample 2 j stood.
  for (const double frequency : {0.0, 0.01, 0.1, 0.18})
    EXPECT_LT(distance(halved(sine(frequency, 2000), 2000), sine(2 * frequency, 1000), 40), 0.01)
        << frequency;
  for (const double frequency : {0.29, 0.4, 0.499})
    EXPECT_LT(distance(halved(sine(frequency, 2000), 2000), Sound(1000), 40), 0.002) << frequency;
}

TEST(HalfRate, answersTheSameForAnyPieces) {
  for (const std::size_t count : {0U, 1U, 2U, 61U, 62U, 63U, 1000U, 1001U}) {
    const Sound sound = sine(0.03, count);
    const Sound whole = halved(sound, 10000);
    EXPECT_EQ(whole.size(), (count + 1) / 2);
    for (const std::size_t piece : {1U, 31U, 32U, 97U})
      EXPECT_EQ(halved(sound, piece), whole) << count << ' ' << piece;
  }
}

}  // namespace
}  // namespace korvel::precise
