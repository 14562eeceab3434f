// SPDX-License-Identifier: GPL-3.0-or-later
// Runs the commands of the song menu on long songs.
//
//     korvel-arrange-commands build STORE CHORDS
//         stores a song
//     korvel-arrange-commands each STORE RUNS CHORDS...
//         a line for each command: its name, and for songs of so many chords each the seconds of
//         processor time that it takes and that its save takes, the least of all runs
//     korvel-arrange-commands all STORE CHORDS
//         every command once on the song that is stored, all results kept
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <iostream>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "LongSong.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBSong.h"
#include "model/store/QBSettings.h"
#include "model/store/QBTabMgr.h"
#include "workflow/library/AlbumNode.h"
#include "workflow/library/QBSongNode.h"
#include "workflow/session/QBSession.h"

namespace {

using namespace korvel;
using Words = std::vector<std::string>;

constexpr std::string_view kDelete = "deleteSong";

double processorTime() {
  timespec time{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

/// Exports go beside the store. A command logs its last sentence when all but its save is done.
class Desk final : public SavePanel, public OutputView {
 public:
  Desk() {
    SessionViews views;
    views.savePanel = this;
    views.output = this;
    QBSession::session().attach(views);
  }
  Desk(const Desk&) = delete;
  Desk& operator=(const Desk&) = delete;
  ~Desk() override { QBSession::session().attach({}); }

  std::optional<std::string> chooseFile(const std::string& name) override {
    return std::filesystem::path(QBTabMgr::storePath()).replace_filename(name).string();
  }
  void addLogText(const platform::UserText&) override { m_lastLogged = processorTime(); }
  double lastLogged() const { return m_lastLogged; }

 private:
  double m_lastLogged = 0;
};

struct Seconds {
  double alone;
  double save;
};

/// The song has an album of its own; both are named after its length.
QBAlbum& albumOf(const std::string& chords) {
  QBAlbum* album = QBTabMgr::db().findAlbumByName(chords);
  if (!album) throw std::runtime_error("the store has no song of " + chords + " chords");
  return *album;
}

void build(const std::string& chords) {
  QBTabMgr& db = QBTabMgr::db();
  const auto folder = std::filesystem::path(QBTabMgr::storePath()).parent_path();
  db.selectedSettings()->setWorkDir((folder / "").string());
  bench::addLongSong(db.createAlbum(chords, false), chords, std::stoi(chords));
  db.save();
  QBTabMgr::clearDb();
}

void perform(const SongCommand& command, const AlbumNode& songs, const QBSong* song) {
  if (!songs.findChild(song)->perform(command))
    throw std::runtime_error(std::string(command.command) + " failed");
}

/// Some commands leave the save to their caller.
Seconds measure(const Desk& desk, const SongCommand& command, const QBSong* song) {
  const auto songs = AlbumNode::withSongs(song->album());
  const double start = processorTime();
  perform(command, *songs, song);
  QBTabMgr::db().save();
  return {desk.lastLogged() - start, processorTime() - desk.lastLogged()};
}

/// What the command makes goes again; what it deletes is a copy.
Seconds measureOnce(const Desk& desk, const SongCommand& command, const std::string& chords) {
  QBAlbum& album = albumOf(chords);
  QBSong* song = album.findSongByName(chords);
  if (command.command == kDelete) song = song->clone();
  QBTabMgr::db().save();
  const Seconds seconds = measure(desk, command, song);
  QBSession::session().setActiveSong(nullptr);
  for (const auto& made : album.songs().snapshot())
    if (made->title() != chords) album.deleteSong(made);
  QBTabMgr::db().save();
  return seconds;
}

template <class Action>
void forEachCommand(const Action& action) {
  for (const SongMenuSection& section : songMenu())
    for (const SongCommand& command : section.items) action(command);
}

/// The songs take turns, so that other work on the machine slows them alike.
void runEach(const Desk& desk, int runs, const Words& lengths) {
  forEachCommand([&](const SongCommand& command) {
    std::vector<Seconds> best(lengths.size(), {HUGE_VAL, HUGE_VAL});
    for (int i = 0; i < runs; ++i) {
      for (std::size_t at = 0; at < lengths.size(); ++at) {
        const Seconds next = measureOnce(desk, command, lengths[at]);
        best[at] = {std::min(best[at].alone, next.alone), std::min(best[at].save, next.save)};
      }
    }
    std::cout << command.command;
    for (const Seconds& seconds : best) std::cout << ' ' << seconds.alone << ' ' << seconds.save;
    std::cout << std::endl;
  });
}

void runAll(const std::string& chords) {
  const auto songs = AlbumNode::withSongs(&albumOf(chords));
  const QBSong* song = albumOf(chords).findSongByName(chords);
  forEachCommand([&](const SongCommand& command) { perform(command, *songs, song); });
  QBTabMgr::db().save();
  QBSession::session().setActiveSong(nullptr);
  QBTabMgr::clearDb();
}

int run(const Words& words) {
  if (words.size() < 3) {
    std::cerr << "usage: korvel-arrange-commands build STORE CHORDS | each STORE RUNS CHORDS... | "
                 "all STORE CHORDS\n";
    return EXIT_FAILURE;
  }
  QBTabMgr::setStorePath(words[1]);
  const Desk desk;
  if (words[0] == "all") {
    runAll(words[2]);
  } else if (words[0] == "build") {
    build(words[2]);
  } else {
    const Words lengths(words.begin() + 3, words.end());
    std::ranges::for_each(lengths, build);
    runEach(desk, std::stoi(words[2]), lengths);
  }
  return EXIT_SUCCESS;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return run(Words(argv + 1, argv + argc));
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return EXIT_FAILURE;
  }
}
