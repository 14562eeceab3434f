// SPDX-License-Identifier: GPL-3.0-or-later
// Prints where the time of importing a file goes, in seconds, and how many tones were found.
#include <chrono>
#include <cstdlib>
#include <iostream>
#include <memory>

#include "model/songs/QBAlbum.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "support/store/ScratchFolder.h"
#include "workflow/hearing/QBCmdImportSong.h"
#include "workflow/library/AlbumNode.h"
#include "workflow/session/StoreSeeding.h"

namespace {

using namespace korvel;

template <class Work>
double secondsOf(const Work& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double tonesPerChord(const QBSong& song) {
  std::size_t tones = 0;
  for (const QBChord* chord : song.chords()) tones += chord->hold()->tones().size();
  return static_cast<double>(tones) / static_cast<double>(song.chords().size());
}

void print(const char* name, double value) { std::cout << name << ' ' << value << '\n'; }

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: korvel-import-phases FILE\n";
    return EXIT_FAILURE;
  }
  const test::ScratchFolder folder;
  QBTabMgr::setStorePath(folder.file("Korvel.sqlite"));
  if (!QBTabMgr::db().isInitialized()) initializeData(QBTabMgr::db());
  QBAlbum* album = QBTabMgr::db().createAlbum("Bench", false);
  QBSong* song = album->createSong("Bench");
  {
    QBCmdImportSong command(std::make_shared<AlbumNode>(album), argv[1], song);
    const double decoding = secondsOf([&] { command.prepare(); });
    const double scanning = secondsOf([&] { command.execute(); });
    const double drawing = secondsOf([&] { command.tearDown(); });
    const double saving = secondsOf([] { QBTabMgr::db().save(); });
    print("decode", decoding);
    print("scan", scanning);
    print("tablature", drawing);
    print("save", saving);
    print("save-share", saving / (decoding + scanning + drawing + saving));
    print("tones-per-chord", tonesPerChord(*song));
  }
  QBTabMgr::clearDb();
  return EXIT_SUCCESS;
}
