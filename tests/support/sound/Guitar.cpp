// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/sound/Guitar.h"

#include <cmath>
#include <numbers>

#include "support/store/ScratchFolder.h"

namespace korvel::test {
namespace {

constexpr int kRate = 44100;
constexpr double kLoudness = 3000.0;
constexpr int kPartials = 6;

double hertz(int midi) { return 440.0 * std::exp2((midi - 69) / 12.0); }

void addTone(std::vector<double>& mix, std::size_t from, std::size_t count, int midi) {
  for (int partial = 1; partial <= kPartials; ++partial) {
    const double step = 2.0 * std::numbers::pi * hertz(midi) * partial / kRate;
    for (std::size_t i = 0; i < count; ++i) {
      const double t = static_cast<double>(i) / kRate;
      mix[from + i] += kLoudness / partial * std::exp(-0.5 * partial * t) *
                       std::sin(step * static_cast<double>(i));
    }
  }
}

template <class Number>
std::string littleEndian(Number value, int bytes) {
  std::string text;
  for (int i = 0; i < bytes; ++i) text += static_cast<char>(static_cast<unsigned>(value) >> 8 * i);
  return text;
}

}  // namespace

std::vector<std::int16_t> play(const std::vector<Strum>& strums) {
  std::vector<double> mix;
  for (const Strum& strum : strums) {
    const std::size_t from = mix.size();
    const auto count = static_cast<std::size_t>(strum.seconds * kRate);
    mix.resize(from + count);
    for (const int note : strum.notes) addTone(mix, from, count, note);
  }
  std::vector<std::int16_t> samples;
  for (const double value : mix)
    samples.push_back(
        static_cast<std::int16_t>(std::lround(std::fmax(-32768, std::fmin(32767, value)))));
  return samples;
}

std::vector<int> notesOf(const std::string& shape) {
  static constexpr int kOpen[] = {40, 45, 50, 55, 59, 64};
  std::vector<int> notes;
  for (std::size_t string = 0; string < shape.size(); ++string)
    if (shape[string] != 'x') notes.push_back(kOpen[string] + shape[string] - '0');
  return notes;
}

void writeWav(const std::string& file, const std::vector<std::int16_t>& samples, int rate,
              int channels) {
  const auto bytes = samples.size() * 2;
  std::string wav = "RIFF" + littleEndian(36 + bytes, 4) + "WAVEfmt " + littleEndian(16, 4) +
                    littleEndian(1, 2) + littleEndian(channels, 2) + littleEndian(rate, 4) +
                    littleEndian(std::int64_t{2} * rate * channels, 4) +
                    littleEndian(channels * 2, 2) + littleEndian(16, 2) + "data" +
                    littleEndian(bytes, 4);
  for (const std::int16_t sample : samples) wav += littleEndian(sample, 2);
  writeFile(file, wav);
}

std::vector<std::int16_t> stereo(const std::vector<std::int16_t>& samples) {
  std::vector<std::int16_t> both;
  for (const std::int16_t sample : samples) both.insert(both.end(), 2, sample);
  return both;
}

std::vector<std::int16_t> separateNotes(const std::vector<int>& notes) {
  std::vector<Strum> strums;
  for (const int note : notes) strums.insert(strums.end(), {{{}, 0.5}, {{note}, 1.5}});
  return play(strums);
}

std::vector<std::int16_t> fewChords() {
  return play({{notesOf("x02210"), 2.0}, {notesOf("x32010"), 2.0}, {notesOf("022100"), 2.0}});
}

}  // namespace korvel::test
