// SPDX-License-Identifier: GPL-3.0-or-later
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdint>
#include <ctime>
#include <numbers>
#include <semaphore>
#include <string>
#include <vector>

#include "analysis/picture/SoundPicture.h"
#include "platform/media/WaveFileWriter.h"
#include "support/store/ScratchFolder.h"

namespace korvel {
namespace {

/// Plucked notes, a second each.
std::string recordingOf(const test::ScratchFolder& folder, double seconds) {
  const std::string file = folder.file("recording.wav");
  platform::WaveFileWriter writer(file, platform::kSampleRate, 1);
  std::vector<std::int16_t> second(platform::kSampleRate);
  for (int note = 0; note < seconds; ++note) {
    const double frequency = 82.4 * std::exp2(note % 30 / 12.0);
    for (std::size_t i = 0; i < second.size(); ++i) {
      const double t = static_cast<double>(i) / platform::kSampleRate;
      second[i] = static_cast<std::int16_t>(12000 * std::exp(-3 * t) *
                                            std::sin(2 * std::numbers::pi * frequency * t));
    }
    writer.write(second);
  }
  writer.finish();
  return file;
}

/// The whole recording at every level, with what it takes of memory in MiB and, in milliseconds of
/// the thread's own time, until there is something to be seen.
void picturing(benchmark::State& state) {
  const test::ScratchFolder folder;
  const double seconds = 60.0 * static_cast<double>(state.range(0));
  const std::string file = recordingOf(folder, seconds);
  for (auto _ : state) {
    std::counting_semaphore<> changed{0};
    SoundPicture picture({.path = file, .seconds = seconds}, [&] { changed.release(); });
    std::int64_t tiles = 0;
    for (int level = 0; level <= picture.topLevel(); ++level)
      tiles += (picture.columns(level) + 255) / 256;
    const std::clock_t start = std::clock();
    picture.want({{picture.topLevel(), 0, picture.columns(picture.topLevel())}});
    changed.acquire();
    state.counters["first"] = 1000.0 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
    for (std::int64_t tile = 1; tile < tiles; ++tile) changed.acquire();
    state.counters["MiB"] = static_cast<double>(picture.bytes()) / (1 << 20U);
  }
}

/// A stretch as wide as a large screen, from what is there.
void lookingAtIt(benchmark::State& state) {
  const test::ScratchFolder folder;
  SoundPicture picture({.path = recordingOf(folder, 60), .seconds = 60}, [] {});
  const SoundPicture::Stretch screen{0, 0, 2560};
  picture.want({screen});
  while (picture.look(screen).shades.back() == nullptr) continue;
  for (auto _ : state) benchmark::DoNotOptimize(picture.look(screen));
}

BENCHMARK(picturing)->Arg(4)->Arg(60)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();
BENCHMARK(lookingAtIt)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace korvel
