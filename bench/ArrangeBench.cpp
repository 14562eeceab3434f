// SPDX-License-Identifier: GPL-3.0-or-later
#include <benchmark/benchmark.h>

#include "StoredSong.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBTone.h"
#include "tab/text/SongDrawing.h"

namespace korvel {
namespace {

using bench::StoredSong;

/// Every chord and every tone of a song that nothing was read of.
void readSong(benchmark::State& state) {
  const StoredSong store(state.range(0));
  for (auto _ : state) {
    state.PauseTiming();
    StoredSong::reopen();
    QBSong* song = StoredSong::song();
    state.ResumeTiming();
    double amps = 0;
    for (const auto& chord : song->allChords())
      for (const auto& tone : chord->readAllTones()) amps += tone->amp();
    benchmark::DoNotOptimize(amps);
  }
}

void cloneSong(benchmark::State& state) {
  const StoredSong store(state.range(0));
  for (auto _ : state) {
    QBSong* copy = StoredSong::song()->clone();
    state.PauseTiming();
    StoredSong::album()->deleteSong(copy);
    state.ResumeTiming();
  }
}

/// As the steps of a chain do with the songs between them.
void cloneAndDeleteSong(benchmark::State& state) {
  const StoredSong store(state.range(0));
  for (auto _ : state) StoredSong::album()->deleteSong(StoredSong::song()->clone());
}

void buildTab(benchmark::State& state) {
  const StoredSong store(state.range(0));
  for (auto _ : state) buildTab(*StoredSong::song());
}

/// What the heaviest commands do besides filtering, up to their save.
void runCommand() {
  QBSong* first = StoredSong::song()->clone();
  buildTab(*first);
  QBSong* second = first->clone();
  buildTab(*second);
  StoredSong::album()->deleteSong(first);
  QBSong* third = second->clone();
  buildTab(*third);
  StoredSong::album()->deleteSong(second);
  third->setTitle("Result");
  buildTab(*third);
}

void deleteResult() {
  StoredSong::album()->deleteSong(StoredSong::album()->findSongByName("Result"));
}

/// At most 50 ms for 650 chords, and 12 times that for 6,500.
void command(benchmark::State& state) {
  const StoredSong store(state.range(0));
  for (auto _ : state) {
    runCommand();
    state.PauseTiming();
    deleteResult();
    state.ResumeTiming();
  }
}

/// At most 150 ms for 650 chords, and 12 times that for 6,500.
void commandAndSave(benchmark::State& state) {
  const StoredSong store(state.range(0));
  for (auto _ : state) {
    runCommand();
    StoredSong::db().save();
    state.PauseTiming();
    deleteResult();
    StoredSong::db().save();
    state.ResumeTiming();
  }
}

/// The same from opening the store to its save, as the command line does.
void commandOfAProcess(benchmark::State& state) {
  const StoredSong store(state.range(0));
  for (auto _ : state) {
    runCommand();
    StoredSong::db().save();
    state.PauseTiming();
    deleteResult();
    StoredSong::db().save();
    StoredSong::reopen();
    state.ResumeTiming();
  }
}

/// Of a song that is stored.
void deleteAndSave(benchmark::State& state) {
  const StoredSong store(state.range(0));
  for (auto _ : state) {
    state.PauseTiming();
    StoredSong::song()->clone()->setTitle("Result");
    StoredSong::db().save();
    state.ResumeTiming();
    deleteResult();
    StoredSong::db().save();
  }
}

BENCHMARK(readSong)->Arg(650)->Arg(6500)->Unit(benchmark::kMillisecond);
BENCHMARK(cloneSong)->Arg(650)->Arg(6500)->Unit(benchmark::kMillisecond);
BENCHMARK(cloneAndDeleteSong)->Arg(650)->Arg(6500)->Unit(benchmark::kMillisecond);
BENCHMARK(buildTab)->Arg(650)->Arg(6500)->Unit(benchmark::kMillisecond);
BENCHMARK(command)->Arg(650)->Arg(6500)->Unit(benchmark::kMillisecond);
BENCHMARK(commandAndSave)->Arg(650)->Arg(6500)->Unit(benchmark::kMillisecond);
BENCHMARK(deleteAndSave)->Arg(650)->Arg(6500)->Unit(benchmark::kMillisecond);
BENCHMARK(commandOfAProcess)->Arg(650)->Arg(6500)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace korvel
