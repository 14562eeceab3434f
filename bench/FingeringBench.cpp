// SPDX-License-Identifier: GPL-3.0-or-later
#include <benchmark/benchmark.h>

#include <array>
#include <string_view>
#include <vector>

#include "fingering/Fingering.h"

namespace {

using namespace korvel::fingering;

constexpr double kSecondsOfStrum = 0.25;
constexpr double kSecondsBetweenStrings = 0.012;

/// As chords are drawn, lowest string first.
constexpr std::array<std::string_view, 8> kShapes{"x32010", "320003", "022100", "xx0232",
                                                  "x02210", "133211", "x24432", "577655"};

void strum(std::string_view shape, double at, std::vector<Note>& notes) {
  const double end = at + 1.1 * kSecondsOfStrum;
  for (std::size_t s = 0; s < shape.size(); ++s) {
    if (shape[s] == 'x') continue;
    notes.push_back(
        {.onset = at, .end = end, .pitch = korvel::kStandardPitches[s] + shape[s] - '0'});
    at += kSecondsBetweenStrings;
  }
}

/// Four strums a second, a chord for two seconds.
std::vector<Note> strumming(double seconds) {
  std::vector<Note> notes;
  for (int i = 0; kSecondsOfStrum * i < seconds; ++i)
    strum(kShapes[static_cast<std::size_t>(i / 8) % kShapes.size()], kSecondsOfStrum * i, notes);
  return notes;
}

/// To be under a second for the hour, and to grow no faster than the recording.
void fingerStrumming(benchmark::State& state) {
  const std::vector<Note> heard = strumming(60.0 * static_cast<double>(state.range(0)));
  const Fingering fingering(korvel::kStandardPitches, {});
  for (auto _ : state) {
    std::vector<Note> notes = heard;
    fingering.place(notes);
    benchmark::DoNotOptimize(notes.data());
  }
  state.counters["notes"] = static_cast<double>(heard.size());
}
BENCHMARK(fingerStrumming)->Arg(6)->Arg(60)->ArgName("minutes")->Unit(benchmark::kMillisecond);

}  // namespace
