// SPDX-License-Identifier: GPL-3.0-or-later
#include <benchmark/benchmark.h>

#include <cstdint>
#include <ctime>
#include <semaphore>
#include <string>

#include "PluckedRecording.h"
#include "analysis/picture/SoundPicture.h"
#include "support/store/ScratchFolder.h"

namespace korvel {
namespace {

std::string recordingOf(const test::ScratchFolder& folder, double seconds) {
  const std::string file = folder.file("recording.wav");
  bench::writePluckedRecording(file, seconds);
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
