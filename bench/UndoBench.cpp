// SPDX-License-Identifier: GPL-3.0-or-later
#include <benchmark/benchmark.h>
#include <malloc.h>

#include "LongSong.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "platform/persistence/UndoManager.h"
#include "support/store/ScratchFolder.h"
#include "workflow/editing/SongEditor.h"

namespace korvel {
namespace {

double bytesInUse() {
  const auto info = mallinfo2();
  return static_cast<double>(info.uordblks + info.hblkhd);
}

/// A store with one saved song of so many chords, all of it read.
class ReadSong {
 public:
  explicit ReadSong(std::int64_t chords) {
    QBTabMgr::setStorePath(m_folder.file("Korvel.sqlite"));
    QBTabMgr& db = QBTabMgr::db();
    bench::addLongSong(db.createAlbum("Bench", false), "Bench", static_cast<int>(chords));
    db.save();
  }
  ReadSong(const ReadSong&) = delete;
  ReadSong& operator=(const ReadSong&) = delete;
  ~ReadSong() {
    QBTabMgr::clearDb();
    QBTabMgr::setStorePath({});
  }

  static QBAlbum* album() { return QBTabMgr::db().findAlbumByName("Bench"); }
  static QBSong* song() { return album()->findSongByName("Bench"); }

 private:
  test::ScratchFolder m_folder;
};

void deleteSong() {
  QBTabMgr& db = QBTabMgr::db();
  const platform::UndoGroup group(db.context().undoManager(),
                                  platform::UserText::verbatim("Delete"));
  ReadSong::album()->deleteSong(ReadSong::song());
  db.save();
}

/// The bytes are what remembering the song takes beyond having it; fewer than none when the store's
/// own tables shrink by more.
void deleteAsAction(benchmark::State& state) {
  const ReadSong store(state.range(0));
  double bytes = 0;
  for (auto _ : state) {
    state.PauseTiming();
    const double before = bytesInUse();
    state.ResumeTiming();
    deleteSong();
    state.PauseTiming();
    bytes = bytesInUse() - before;
    QBTabMgr::db().undo();
    state.ResumeTiming();
  }
  state.counters["bytes"] = bytes;
}

/// Of a deletion that was saved: all rows are inserted again.
void undoDeletion(benchmark::State& state) {
  const ReadSong store(state.range(0));
  for (auto _ : state) {
    state.PauseTiming();
    deleteSong();
    state.ResumeTiming();
    QBTabMgr::db().undo();
  }
}

/// One tone in the middle, with the tablature drawn anew and saved.
void editFret(benchmark::State& state) {
  const ReadSong store(state.range(0));
  QBSong& song = *ReadSong::song();
  SongEditor editor(QBTabMgr::db(), song);
  int fret = 0;
  const double before = bytesInUse();
  for (auto _ : state) editor.setFret(static_cast<int>(state.range(0)) / 2, 3, 1 + ++fret % 9);
  const auto edits = static_cast<double>(state.iterations());
  state.counters["bytes"] = (bytesInUse() - before) / edits;
}

BENCHMARK(deleteAsAction)->Arg(650)->Arg(6500)->Unit(benchmark::kMillisecond);
BENCHMARK(undoDeletion)->Arg(650)->Arg(6500)->Unit(benchmark::kMillisecond);
BENCHMARK(editFret)->Arg(650)->Arg(6500)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace korvel
