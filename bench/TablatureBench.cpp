// SPDX-License-Identifier: GPL-3.0-or-later
#include <benchmark/benchmark.h>

#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "support/store/StandardStore.h"
#include "tab/text/SongDrawing.h"

namespace korvel {
namespace {

/// Text of a song of four and of sixty minutes; the time for a chord must not grow.
void tablature(benchmark::State& state) {
  const test::StandardStore store;
  QBSong* song = store.song("Bench");
  for (int i = 0; i < state.range(0); ++i) test::addChord(song, "x02210", 1 + i % 4);
  for (auto _ : state) benchmark::DoNotOptimize(toString(*song).size());
  state.counters["perChord"] = benchmark::Counter(
      static_cast<double>(state.range(0)),
      benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
BENCHMARK(tablature)->Arg(650)->Arg(9700)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace korvel
