// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/solving/PluckedStrings.h"

#include <array>
#include <cmath>
#include <complex>
#include <numbers>
#include <vector>

#include "precise/seeing/FrontEnd.h"
#include "precise/seeing/Levels.h"

namespace korvel::precise {
namespace {

/// What an overtone has of the amplitude of the one below it.
constexpr std::array kDecays = {0.4, 0.6, 0.75, 0.9};
constexpr int kPartials = 20;
/// The stiffness of a string raises its overtones.
constexpr double kInharmonicity = 5e-5;
constexpr double kHighestPartial = 9500;
/// Of the squared partial number, so that no two partials line up (the golden angle).
constexpr double kPhase = 2.399963;
/// The tone sounds around this frame, as long as the longest window and the filters reach.
constexpr Frame kFrame = 10;
constexpr std::size_t kLength = 2 * kFrame * kHop;

using Tone = std::vector<float>;

double partialFrequency(double fundamental, int h) {
  return h * fundamental * std::sqrt(1 + kInharmonicity * h * h);
}

using Tones = std::array<Tone, kDecays.size()>;

/// A sine that turns by one sample at a time, with an amplitude of its own in each tone.
struct Partial {
  std::complex<double> turning;
  std::complex<double> turn;
  std::array<double, kDecays.size()> amplitudes{};
};

Partial partial(double frequency, int h) {
  Partial partial{std::polar(1.0, kPhase * h * h),
                  std::polar(1.0, 2 * std::numbers::pi * frequency / kRate)};
  for (std::size_t i = 0; i < kDecays.size(); ++i)
    partial.amplitudes[i] = std::pow(kDecays[i], h - 1);
  return partial;
}

/// All partials at once, as each waits for its own turn before.
Tones sum(std::vector<Partial>& partials) {
  Tones tones;
  tones.fill(Tone(kLength));
  for (std::size_t n = 0; n < kLength; ++n) {
    std::array<float, kDecays.size()> sums{};
    for (auto& [turning, turn, amplitudes] : partials) {
      for (std::size_t i = 0; i < sums.size(); ++i)
        sums[i] += static_cast<float>(amplitudes[i] * turning.imag());
      turning = {turning.real() * turn.real() - turning.imag() * turn.imag(),
                 turning.real() * turn.imag() + turning.imag() * turn.real()};
    }
    for (std::size_t i = 0; i < sums.size(); ++i) tones[i][n] = sums[i];
  }
  return tones;
}

Tones tonesOf(double fundamental) {
  std::vector<Partial> partials;
  for (int h = 1; h <= kPartials && partialFrequency(fundamental, h) < kHighestPartial; ++h)
    partials.push_back(partial(partialFrequency(fundamental, h), h));
  return sum(partials);
}

BinRow seen(FrontEnd& frontEnd, const Tone& tone) {
  Recording recording;
  recording.add(tone);
  recording.finish();
  frontEnd.look(recording, kFrame);
  BinRow bins = frontEnd.spectrum(0);
  emphasise(bins, 1);
  return bins;
}

Dictionary compute() {
  Dictionary strings;
  FrontEnd frontEnd(0);
  for (std::size_t pitch = 0; pitch < kPitches; ++pitch) {
    const double fundamental = hertzOfNote(static_cast<double>(pitch) + Analysis::kLowestPitch);
    for (const Tone& tone : tonesOf(fundamental)) strings.add(pitch, 0, seen(frontEnd, tone));
  }
  return strings;
}

}  // namespace

const Dictionary& pluckedStrings() {
  // Never destroyed: another thread may still listen while the program ends.
  static const Dictionary& strings = *new Dictionary(compute());
  return strings;
}

}  // namespace korvel::precise
