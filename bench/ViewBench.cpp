// SPDX-License-Identifier: GPL-3.0-or-later
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>
#include <cstdint>
#include <ctime>

#include "PluckedRecording.h"
#include "StoredSong.h"
#include "model/recorded/SongRecording.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "music/ChordStep.h"
#include "ui/roll/RollView.h"
#include "ui/views/FretboardView.h"
#include "ui/views/TablatureView.h"

namespace korvel {
namespace {

using bench::StoredSong;

/// What a window shows of a song, at the size of a large screen.
class Desk {
 public:
  Desk() {
    auto* column = new QVBoxLayout(&m_window);
    column->addWidget(&m_tab, 3);
    column->addWidget(&m_roll, 1);
    column->addWidget(&m_neck, 1);
    m_window.resize(2560, 1440);
    m_window.show();
    QApplication::processEvents();
  }
  Desk(const Desk&) = delete;
  Desk& operator=(const Desk&) = delete;

  void open(QBSong* song) {
    m_tab.setActiveSong(song);
    m_roll.setSong(song);
    m_neck.setSong(song);
    QApplication::processEvents();
  }
  void play(int chord) {
    m_tab.showPlaying(chord);
    m_roll.showPlaying(chord);
    m_neck.showChord(chord);
    QApplication::processEvents();
  }
  void work(int chord) {
    m_tab.moveCursor(chord, 3);
    m_roll.showCursor(chord);
    QApplication::processEvents();
  }
  void scroll(int row) {
    m_tab.verticalScrollBar()->setValue(row);
    m_roll.horizontalScrollBar()->setValue(row);
    QApplication::processEvents();
  }
  int rows() const { return m_tab.verticalScrollBar()->maximum(); }

 private:
  QWidget m_window;
  ui::TablatureView m_tab{&m_window};
  ui::RollView m_roll{&m_window};
  ui::FretboardView m_neck{&m_window};
};

/// Reads the store and the song, and draws it.
void openingSong(benchmark::State& state) {
  const StoredSong stored(state.range(0));
  Desk desk;
  for (auto _ : state) {
    state.PauseTiming();
    desk.open(nullptr);
    StoredSong::reopen();
    QBSong* song = StoredSong::song();
    state.ResumeTiming();
    desk.open(song);
  }
  desk.open(nullptr);
}

/// Shows a song that is in memory, as after each edit.
void refreshing(benchmark::State& state) {
  const StoredSong stored(state.range(0));
  Desk desk;
  QBSong* song = StoredSong::song();
  for (auto _ : state) desk.open(song);
  desk.open(nullptr);
}

/// One step for each chord of the song, and the longest of them in processor time, in which other
/// programs do not count.
template <class Step>
void steps(benchmark::State& state, Step step) {
  const StoredSong stored(state.range(0));
  Desk desk;
  desk.open(StoredSong::song());
  int chord = 0;
  double longest = 0;
  for (auto _ : state) {
    const std::clock_t start = std::clock();
    step(desk, chord);
    longest =
        std::max(longest, 1000.0 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
    chord = (chord + 1) % static_cast<int>(state.range(0));
  }
  state.counters["longest"] = longest;
  desk.open(nullptr);
}

void playing(benchmark::State& state) {
  steps(state, [](Desk& desk, int chord) { desk.play(chord); });
}

void movingTheCursor(benchmark::State& state) {
  steps(state, [](Desk& desk, int chord) { desk.work(chord); });
}

void scrolling(benchmark::State& state) {
  steps(state, [](Desk& desk, int chord) { desk.scroll(chord * 97 % desk.rows()); });
}

double millisecondsOfThread() {
  std::timespec time{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return 1e3 * static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_nsec);
}

/// The roll with the picture of a recording behind it, from the whole song in the view to single
/// periods of a string: the longest step in the time of the window's thread, as tiles are made on
/// another.
void zoomingTheRecording(benchmark::State& state) {
  const StoredSong stored(state.range(0));
  const test::ScratchFolder folder;
  const double seconds = static_cast<double>(state.range(0)) * kSecondsOfChord;
  bench::writePluckedRecording(folder.file("a.wav"), seconds);
  QBSong* song = StoredSong::song();
  SongRecording* recording = StoredSong::db().createRecording(folder.file("a.wav"));
  recording->setSeconds(seconds);
  song->setRecording(recording);
  std::int64_t place = 0;
  for (const auto& chord : song->allChords())
    chord->setTimestamp(static_cast<std::int64_t>(kSamplesOfChord) * ++place);
  ui::RollView roll;
  roll.resize(2560, 480);
  roll.setSong(song);
  roll.show();
  double longest = 0;
  double zoom = 0.1;
  for (auto _ : state) {
    const double start = millisecondsOfThread();
    roll.setZoom(zoom);
    roll.horizontalScrollBar()->setValue(roll.horizontalScrollBar()->maximum() / 3);
    QApplication::processEvents();
    longest = std::max(longest, millisecondsOfThread() - start);
    zoom = zoom > 20000 ? 0.1 : zoom * 1.1;
  }
  state.counters["longest"] = longest;
}

BENCHMARK(openingSong)->Arg(650)->Arg(6500)->Unit(benchmark::kMillisecond);
BENCHMARK(refreshing)->Arg(650)->Arg(6500)->Unit(benchmark::kMillisecond);
BENCHMARK(playing)->Arg(650)->Arg(6500)->Unit(benchmark::kMillisecond);
BENCHMARK(movingTheCursor)->Arg(650)->Arg(6500)->Unit(benchmark::kMillisecond);
BENCHMARK(scrolling)->Arg(650)->Arg(6500)->Unit(benchmark::kMillisecond);
BENCHMARK(zoomingTheRecording)->Arg(650)->Arg(6500)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace korvel

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
