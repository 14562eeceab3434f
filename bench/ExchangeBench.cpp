// SPDX-License-Identifier: GPL-3.0-or-later
#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <functional>

#include "exchange/Formats.h"
#include "exchange/guitarpro/GuitarPro.h"
#include "export/SongMidi.h"
#include "export/score/ScoreWriter.h"
#include "export/score/SongScore.h"
#include "platform/files/Files.h"
#include "support/songs/BeatSong.h"
#include "support/store/StandardStore.h"
#include "tab/text/SongDrawing.h"

namespace korvel {
namespace {

constexpr int kPairsOfBars = 100;

QBSong* songToRead(const test::StandardStore& store) {
  std::string words = "tempo=96 key=7";
  for (int i = 0; i < kPairsOfBars; ++i)
    words += " | G:320003 q e e x20003 q e3 e3 e3 | :xxx0xx s s s s_1q x30210 q rq :3xxxx3 q";
  return test::beatSong(store.song("Bench"), words);
}

double peakMebibytes() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_maxrss) / 1024;
}

/// A thousand files of 200 bars, as songs are exported; a hundred a second are to be read, in less
/// than 100 MiB.
void read(benchmark::State& state, const std::string& ending,
          const std::function<std::string(QBSong&)>& write) {
  const test::StandardStore store;
  const std::string file = store.folder().file("song." + ending);
  platform::writeAtomically(file, write(*songToRead(store)));
  for (auto _ : state) benchmark::DoNotOptimize(exchange::readPiece(file).tracks.size());
  state.SetItemsProcessed(state.iterations());
  state.counters["MiB"] = peakMebibytes();
}

void readMusicXml(benchmark::State& state) {
  read(state, "musicxml", [](QBSong& song) { return ScoreWriter(scoreOf(song)).write(); });
}
BENCHMARK(readMusicXml)->Iterations(1000)->Unit(benchmark::kMillisecond);

void readMidi(benchmark::State& state) {
  read(state, "mid", [](QBSong& song) { return midiFile(midiOf(song)); });
}
BENCHMARK(readMidi)->Iterations(1000)->Unit(benchmark::kMillisecond);

void readGuitarPro5(benchmark::State& state) {
  read(state, "gp5", [](QBSong& song) { return exchange::guitarPro5(scoreOf(song)); });
}
BENCHMARK(readGuitarPro5)->Iterations(1000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace korvel
