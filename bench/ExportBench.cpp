// SPDX-License-Identifier: GPL-3.0-or-later
#include <benchmark/benchmark.h>

#include "LongSong.h"
#include "export/SongMidi.h"
#include "export/score/ScoreWriter.h"
#include "export/score/SongScore.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBSong.h"
#include "support/store/StandardStore.h"

namespace korvel {
namespace {

/// The document of a song of that many chords of six tones; 2,000 are to take less than 100 ms, and
/// the time for a chord must not grow.
template <class Write>
void exportSong(benchmark::State& state, const Write& write) {
  const test::StandardStore store;
  QBAlbum* album = QBTabMgr::db().createAlbum("Bench", false);
  QBSong* song = bench::addLongSong(album, "Bench", static_cast<int>(state.range(0)));
  for (auto _ : state) benchmark::DoNotOptimize(write(*song).size());
  state.counters["perChord"] = benchmark::Counter(
      static_cast<double>(state.range(0)),
      benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void exportMusicXml(benchmark::State& state) {
  exportSong(state, [](QBSong& song) { return ScoreWriter(scoreOf(song)).write(); });
}
BENCHMARK(exportMusicXml)->Arg(500)->Arg(2000)->Arg(8000)->Unit(benchmark::kMillisecond);

void exportMidi(benchmark::State& state) {
  exportSong(state, [](QBSong& song) { return midiFile(midiOf(song)); });
}
BENCHMARK(exportMidi)->Arg(500)->Arg(2000)->Arg(8000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace korvel
