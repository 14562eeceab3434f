// SPDX-License-Identifier: GPL-3.0-or-later
#include "chords/SoloOrBand.h"

#include <algorithm>
#include <vector>

namespace korvel::chords {
namespace {

/// Frames count from this share of a loud one's power on.
constexpr float kNotSoft = 0.02F;
constexpr double kLoudOfAll = 0.95;

/// What is between a guitar and a band in a measure, and how far from that it says something.
struct Between {
  double middle, width;

  double likeBand(double measure) const {
    constexpr double kFewest = -1, kMost = 2;
    return std::clamp((measure - middle) / width, kFewest, kMost);
  }
};
constexpr Between kUsualDrums{0.09, 0.06};
constexpr Between kMostDrums{0.35, 0.15};
constexpr Between kLow{0.011, 0.02};
constexpr Between kDoubt{0.155, 0.06};
constexpr double kEnough = 0.4;

float quantileOf(std::vector<float>& values, double share) {
  if (values.empty()) return 0;
  const auto at =
      values.begin() + static_cast<std::ptrdiff_t>(share * static_cast<double>(values.size() - 1));
  std::ranges::nth_element(values, at);
  return *at;
}

}  // namespace

SoundMeasures measuresOf(const BandSound& sound) {
  std::vector<float> levels;
  for (const SoundFrame& frame : sound.frames) levels.push_back(frame.level);
  const float least = kNotSoft * quantileOf(levels, kLoudOfAll);
  std::vector<float> drums;
  double power = 0, low = 0;
  for (const SoundFrame& frame : sound.frames) {
    if (frame.level <= least) continue;
    drums.push_back(frame.percussive);
    power += static_cast<double>(frame.level);
    low += static_cast<double>(frame.level * frame.low);
  }
  if (drums.empty()) return {};
  return {static_cast<double>(quantileOf(drums, 0.5)), static_cast<double>(quantileOf(drums, 0.9)),
          low / power};
}

bool isBand(const SoundMeasures& measures, double sureness) {
  return kUsualDrums.likeBand(measures.usualDrums) + kMostDrums.likeBand(measures.mostDrums) +
             kLow.likeBand(measures.low) + kDoubt.likeBand(1 - sureness) >
         kEnough;
}

}  // namespace korvel::chords
