// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/sound/PlayedBand.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>

namespace korvel::test {
namespace {

constexpr int kRateOfBand = 44100;

}  // namespace

void addTone(BandSound& sound, double from, int number, double loud) {
  const double hertz = 440 * std::exp2((number - 69) / 12.0);
  const auto first = static_cast<std::size_t>(from * kRateOfBand);
  const std::size_t last = std::min(sound.size(), first + std::size_t{kRateOfBand} / 2);
  for (std::size_t i = first; i < last; ++i) {
    const double time = static_cast<double>(i - first) / kRateOfBand;
    double value = 0;
    for (int h = 1; h <= 6; ++h)
      value += std::sin(2 * std::numbers::pi * hertz * h * time) / (h * h);
    sound[i] += static_cast<float>(loud * value * std::exp(-2 * time));
  }
}

void addDrum(BandSound& sound, double from, unsigned seed) {
  std::minstd_rand random(seed);
  const auto first = static_cast<std::size_t>(from * kRateOfBand);
  for (std::size_t k = 0; k < std::size_t{kRateOfBand} / 10 && first + k < sound.size(); ++k)
    sound[first + k] +=
        static_cast<float>(random() % 2000) / 10000 * std::exp(-static_cast<float>(k) / 800) * 0.5F;
}

BandSound playedBand(const BandScore& score) {
  constexpr int kMiddleC = 60, kOctave = 12;
  BandSound sound(static_cast<std::size_t>(static_cast<double>(score.bass.size()) *
                                           kSecondsOfBandBeat * kRateOfBand));
  int root = 0;
  for (std::size_t i = 0; i < score.bass.size(); ++i) {
    const double time = static_cast<double>(i) * kSecondsOfBandBeat;
    if (score.bass[i] > 0) root = score.bass[i] % kOctave;
    for (const int step : {0, 4, 7})
      addTone(sound, time, kMiddleC - kOctave / 2 + (root + step) % kOctave, 0.04);
    if (score.bass[i] > 0) addTone(sound, time, score.bass[i], 0.3);
    if (score.melody[i] > 0) addTone(sound, time, score.melody[i], 0.25);
    addDrum(sound, time, static_cast<unsigned>(i) + 1);
  }
  return sound;
}

std::vector<std::int16_t> samplesOf(const BandSound& sound) {
  constexpr float kFull = 32767;
  std::vector<std::int16_t> samples;
  for (const float sample : sound)
    samples.push_back(static_cast<std::int16_t>(std::clamp(sample, -1.0F, 1.0F) * kFull));
  return samples;
}

}  // namespace korvel::test
