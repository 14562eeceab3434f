// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/hearing/ImportDesk.h"

#include <filesystem>

#include "model/instruments/SongTuning.h"
#include "platform/loop/PlainRunLoop.h"
#include "platform/sqlite/StoreError.h"
#include "support/RecordingViews.h"
#include "support/Testing.h"
#include "support/songs/SongDesk.h"
#include "support/sound/Guitar.h"
#include "support/sound/PlayedBand.h"
#include "support/store/FileSizeLimit.h"
#include "support/store/StandardStore.h"
#include "workflow/editing/SongEditor.h"
#include "workflow/hearing/KnownRecordings.h"
#include "workflow/hearing/QBCmdImportSong.h"
#include "workflow/hearing/WholeSong.h"
#include "workflow/library/AlbumNode.h"
#include "workflow/library/LibraryEdits.h"
#include "workflow/library/LibraryTree.h"
#include "workflow/session/EditRefused.h"
#include "workflow/session/QBSession.h"

namespace korvel {
namespace {

struct ImportDeskTest : testing::Test {
  ImportDeskTest() {
    test::writeWav(m_file, test::fewChords());
    m_tree.emplace(QBTabMgr::db(), QBSession::session());
  }

  void runUntil(const std::function<bool()>& done) {
    platform::PlainRunLoop::ofProcess().runUntil(done);
  }
  std::shared_ptr<QBCmdImportSong> start(const Detection& detection, QBAlbum* into = nullptr) {
    ImportDesk desk(*m_tree);
    desk.setDetection(detection, {});
    return desk.importFile(m_file, into);
  }
  std::size_t stored(const char* entity) { return QBTabMgr::db().context().fetch(entity).size(); }

  const test::ScratchStore m_store{test::ScratchStore::Content::ofFirstStart};
  test::RecordingViews m_views;
  const std::string m_file = m_store.folder().file("First Try.wav");
  std::optional<LibraryTree> m_tree;
};

TEST_F(ImportDeskTest, tagsOfARecordingNameTheSongAndItsAlbum) {
  const auto chunk = [](const std::string& id, const std::string& content) {
    const auto size = static_cast<char>(content.size());
    return id + size + std::string(3, '\0') + content;
  };
  const std::string info =
      "INFO" + chunk("INAM", "Slow Waltz  ") + chunk("IART", std::string("The Band\0\0", 10));
  test::writeFile(m_file, test::readFile(m_file) + chunk("LIST", info));
  for (const char* title : {"Slow Waltz", "Slow Waltz_2"}) {
    const auto import = start(classicDetection());
    ASSERT_NE(import, nullptr);
    EXPECT_EQ(import->newSong()->title(), title);
    EXPECT_EQ(import->newSong()->album()->name(), "The Band");
    runUntil([&] { return !import->isRunning(); });
  }
  start(classicDetection())->cancelAndDrop();
  EXPECT_EQ(QBTabMgr::db().findAlbumByName("The Band")->songs().size(), 2U);
}

TEST_F(ImportDeskTest, stoppedImportKeepsWhatWasHeardSoFar) {
  for (const Detection* detection : {&classicDetection(), &preciseDetection()}) {
    const auto import = start(*detection);
    const std::size_t heard = detection == &classicDetection() ? 5 : 0;
    runUntil(
        [&] { return import->m_percent >= 20 && import->newSong()->chords().size() >= heard; });
    m_tree->refresh();
    EXPECT_EQ(m_tree->albums().back()->children().size(), 1U) << "the scratch song is not shown";
    import->stopAndKeep();
    runUntil([&] { return !import->isRunning(); });
    EXPECT_TRUE(import->newSong()->hasTabulature());
    EXPECT_EQ(stored("QBBlock"), 0U);
    EXPECT_EQ(m_views.log.back(), "Song successfully imported.");
  }
}

TEST_F(ImportDeskTest, songThatIsNotWholeSaysSoAndIsHeardAgainInItsPlace) {
  const auto whole = start(classicDetection());
  runUntil([&] { return !whole->isRunning(); });
  EXPECT_TRUE(whole->newSong()->isWhole());
  const std::string expected = test::linesOf(*whole->newSong());
  ImportDesk desk(*m_tree);
  desk.setDetection(classicDetection(), {});
  for (const bool keeps : {true, false}) {
    const auto cut = start(classicDetection());
    runUntil([&] { return cut->newSong()->chords().size() == 5; });
    const auto left = keeps ? ImportDesk::running() : ImportDesk::leaveAll();
    if (keeps) ImportDesk::endAll();
    const platform::Ref<QBSong> song = cut->newSong();
    EXPECT_FALSE(cut->isRunning() || song->isWhole());
    EXPECT_NE(song->tabulature().find("The recording was not heard to its end."),
              std::string::npos);
    const auto again = desk.goOn(left.front());
    ASSERT_NE(again, nullptr);
    m_tree->refresh();
    EXPECT_EQ(m_tree->albums().back()->children().size(), 1U) << "only the old one is shown";
    EXPECT_EQ(desk.hearAgain(*song), nullptr) << "once at a time";
    runUntil([&] { return !again->isRunning(); });
    EXPECT_TRUE(song->isDeleted());
    EXPECT_EQ(test::linesOf(*again->newSong()), expected);
    EXPECT_TRUE(again->newSong()->isWhole());
    EXPECT_FALSE(QBTabMgr::db().context().hasChanges());
    QBSession::session().setActiveSong(again->newSong());
    EXPECT_TRUE(QBSession::session().undo());
    EXPECT_EQ(song->chords().size(), 5U) << "one action";
    EXPECT_EQ(QBSession::session().activeSong(), nullptr) << "it is gone";
    EXPECT_TRUE(QBSession::session().redo());
    EXPECT_EQ(m_tree->albums().back()->album()->songs().size(), 1U);
  }
}

TEST_F(ImportDeskTest, recordingIsKnownAgainAndHeardAnewIntoItsSong) {
  const auto first = start(preciseDetection());
  runUntil([&] { return !first->isRunning(); });
  const platform::Ref<QBSong> song = first->newSong();
  const std::string expected = test::linesOf(*song);
  EXPECT_EQ(songHeardIn(QBTabMgr::db(), m_file), song.get());
  EXPECT_TRUE(canHearAnew(*song));
  ImportDesk desk(*m_tree);
  HearingSettings ofOthers;
  ofOthers.fingering.capo = 5;
  desk.setDetection(preciseDetection(), ofOthers);
  const auto again = desk.hearAgain(*song);
  ASSERT_NE(again, nullptr);
  runUntil([&] { return !again->isRunning(); });
  EXPECT_TRUE(song->isDeleted());
  EXPECT_EQ(capoOf(*again->newSong()), 0);
  EXPECT_EQ(test::linesOf(*again->newSong()), expected);
  EXPECT_TRUE(QBSession::session().undo());
  EXPECT_EQ(m_views.log.back(), "Undo Hear Again");
  EXPECT_EQ(test::linesOf(*song), expected);

  std::string changed = test::readFile(m_file);
  changed.back() = static_cast<char>(changed.back() ^ 1);
  const auto meanwhile = desk.hearAgain(*song);
  ASSERT_NE(meanwhile, nullptr);
  test::writeFile(m_file + ".other", changed);
  std::filesystem::rename(m_file + ".other", m_file);
  runUntil([&] { return !meanwhile->isRunning(); });
  EXPECT_FALSE(song->isDeleted()) << "another recording would take its place";
  EXPECT_EQ(desk.hearAgain(*song), nullptr);
  EXPECT_FALSE(canHearAnew(*song));
  test::writeFile(m_file, test::readFile(m_file) + "another end");
  EXPECT_FALSE(canHearAnew(*song));
  EXPECT_EQ(songHeardIn(QBTabMgr::db(), m_file), nullptr);
}

TEST_F(ImportDeskTest, voicesOfABandBecomeSongsInTheSameAction) {
  test::BandScore score;
  for (int bar = 0; bar < 8; ++bar)
    for (const auto& [tune, bass] : {std::pair{72, 36}, {74, 43}, {76, 36}, {79, 40}}) {
      score.melody.push_back(tune - bar % 2 * 2);
      score.bass.push_back(bass + bar % 2 * 5);
    }
  test::writeWav(m_file, test::samplesOf(test::playedBand(score)));
  HearingSettings settings = settingsOfFrontEnds();
  settings.players = Players::band;
  settings.voices = {chords::Voice::melody, chords::Voice::bass};
  ImportDesk desk(*m_tree);
  desk.setDetection(preciseDetection(), settings);
  const std::size_t before = stored("QBSong");
  const auto import = desk.importFile(m_file);
  runUntil([&] { return !import->isRunning(); });
  const platform::Ref<QBAlbum> album = import->newSong()->album();
  std::vector<std::string> titles;
  for (const auto& song : album->songs().snapshot()) {
    titles.push_back(song->title());
    EXPECT_EQ(song->recording(), import->newSong()->recording());
    EXPECT_EQ(song->tempo(), import->newSong()->tempo());
    EXPECT_TRUE(song->hasTabulature());
  }
  EXPECT_EQ(titles,
            (std::vector<std::string>{"First Try", "First Try (melody)", "First Try (bass)"}));
  QBSong& bass = *album->songs().snapshot().back();
  EXPECT_NE(test::linesOf(bass).find("|1 C7 1/3*4\n"), std::string::npos)
      << "an octave up: " << test::linesOf(bass);
  EXPECT_TRUE(QBSession::session().undo());
  EXPECT_EQ(stored("QBSong"), before);
  EXPECT_TRUE(QBSession::session().redo());
  for (const auto& [voices, songs] :
       {std::pair(chords::Voices{}, 3U), {{chords::Voice::bass}, 4U}}) {
    const auto again = desk.hearAgain(*album->songs().snapshot().front(), {.voices = voices});
    ASSERT_NE(again, nullptr);
    runUntil([&] { return !again->isRunning(); });
    EXPECT_EQ(album->songs().size(), songs) << "of a whole song they come on request only";
    EXPECT_TRUE(QBSession::session().undo());
    EXPECT_EQ(album->songs().size(), 3U);
  }
}

TEST_F(ImportDeskTest, restingImportIsDropped) {
  const std::size_t albums = stored("QBAlbum");
  const auto import = start(classicDetection());
  runUntil([&] { return import->newSong()->chords().size() == 3; });
  deleteAlbum(*import->newSong()->album());
  runUntil([&] { return !import->isRunning(); });
  EXPECT_TRUE(import->isPaused());
  import->cancelAndDrop();
  EXPECT_FALSE(import->isPaused());
  EXPECT_FALSE(QBSession::session().undo()) << "there would be half a song";
  EXPECT_EQ(stored("QBChord"), 0U);
  EXPECT_EQ(stored("QBBlock"), 0U);
  EXPECT_EQ(stored("QBAlbum"), albums);
}

TEST_F(ImportDeskTest, importWaitsUntilTheStoreHasRoom) {
  const auto running = start(classicDetection());
  int told = 0;
  running->onTrouble([&](const platform::UserText&) { ++told; });
  {
    const test::FileSizeLimit full(4096);
    runUntil([&] { return told == 2; });
    EXPECT_TRUE(running->isRunning());
    EXPECT_NE(m_views.log.back().find("is stored as soon as that works"), std::string::npos);
    EXPECT_THROW(newAlbum("Other"), platform::StoreError);
    EXPECT_EQ(QBTabMgr::db().findAlbumByName("Other"), nullptr);
  }
  runUntil([&] { return !running->isRunning(); });
  EXPECT_EQ(m_views.log.back(), "Song successfully imported.");
  EXPECT_FALSE(QBTabMgr::db().context().hasChanges());
  const test::FileSizeLimit full(4096);
  start(classicDetection());
  EXPECT_EQ(ImportDesk::endAll().size(), 1U) << "there is no more time to wait";
}

TEST_F(ImportDeskTest, importOfADeletedSongRestsUntilTheSongIsBack) {
  const auto whole = start(classicDetection());
  runUntil([&] { return !whole->isRunning(); });
  const std::string expected = test::linesOf(*whole->newSong());
  const auto import = start(classicDetection());
  const platform::Ref<QBSong> song = import->newSong();
  for (const std::size_t chords : {3U, 6U}) {
    runUntil([&] { return song->chords().size() == chords; });
    EXPECT_THROW(SongEditor(QBTabMgr::db(), *song).setFret(0, 0, 3), EditRefused)
        << "the next chord is to come";
    deleteAlbum(*song->album());
    runUntil([&] { return !import->isRunning(); });
    EXPECT_TRUE(song->isDeleted());
    EXPECT_TRUE(QBSession::session().undo());
    EXPECT_TRUE(import->isRunning());
    EXPECT_FALSE(QBSession::session().redo()) << "it would leave the chords that come now";
  }
  runUntil([&] { return !import->isRunning(); });
  EXPECT_EQ(test::linesOf(*song), expected);
  EXPECT_TRUE(song->hasTabulature());
  SongEditor(QBTabMgr::db(), *song).setFret(0, 0, 3);
  for (int action = 0; action < 3; ++action) EXPECT_TRUE(QBSession::session().undo());
  EXPECT_EQ(stored("QBChord"), 0U);
  EXPECT_EQ(stored("QBBlock"), 0U);
}

TEST_F(ImportDeskTest, stoppedImportStaysCutWhenTheProgramEnds) {
  start(preciseDetection())->stopAndKeep();
  EXPECT_EQ(ImportDesk::endAll().size(), 1U);
}

TEST_F(ImportDeskTest, endOfTheProgramKeepsWhatWasHeard) {
  const auto classic = start(classicDetection());
  const auto precise = start(preciseDetection());
  runUntil([&] { return classic->newSong()->chords().size() == 5; });
  while (precise->m_percent == 0) precise->nextStep();
  const auto silent = start(classicDetection());
  const auto interrupted = ImportDesk::endAll();
  EXPECT_TRUE(ImportDesk::running().empty());
  EXPECT_EQ(classic->newSong()->chords().size(), 5U);
  EXPECT_TRUE(classic->newSong()->hasTabulature());
  EXPECT_TRUE(precise->newSong()->hasTabulature());
  EXPECT_TRUE(silent->newSong()->isDeleted()) << "nothing of it was heard yet";
  EXPECT_FALSE(QBTabMgr::db().context().hasChanges());
  std::vector<std::string> titles;
  for (const ImportUnderWay& each : interrupted) titles.push_back(each.title);
  EXPECT_NE(std::ranges::find(titles, classic->newSong()->title()), titles.end());
}

TEST_F(ImportDeskTest, whatAKilledProgramLeftOfAnImportIsMended) {
  const auto import = start(classicDetection());
  runUntil([&] { return import->newSong()->chords().size() == 5; });
  const auto unheard = start(preciseDetection());
  const auto running = ImportDesk::running();
  ASSERT_EQ(running.size(), 2U);
  EXPECT_EQ(running.front().file, m_file);
  QBTabMgr::db().save();
  const std::string left = m_store.folder().file("Left.sqlite");
  std::filesystem::copy_file(QBTabMgr::storePath(), left);
  unheard->cancelAndDrop();
  import->cancelAndDrop();
  m_tree.reset();
  QBTabMgr::clearDb();
  QBTabMgr::setStorePath(left);
  m_tree.emplace(QBTabMgr::db(), QBSession::session());
  QBSong* song = ImportDesk::mend(running.front());
  ASSERT_NE(song, nullptr);
  EXPECT_EQ(song->chords().size(), 5U);
  EXPECT_TRUE(song->hasTabulature());
  EXPECT_EQ(ImportDesk::mend(running.back()), nullptr) << "nothing was heard of it";
  EXPECT_EQ(QBTabMgr::db().albums().size(), 1U);
  EXPECT_FALSE(QBTabMgr::db().context().hasChanges());
  EXPECT_EQ(ImportDesk::mend({"other.wav", song->objectId(), "Other"}), nullptr);
}

TEST_F(ImportDeskTest, droppedImportLeavesSongsThatWereMovedToItsAlbum) {
  QBAlbum* home = QBTabMgr::db().createAlbum("Home", false);
  const platform::Ref<QBSong> moved = home->createSong("Waltz");
  const auto import = start(classicDetection());
  const auto into = start(classicDetection(), import->newSong()->album());
  const platform::Ref<QBAlbum> album = import->newSong()->album();
  runUntil([&] { return into->newSong()->chords().size() == 3; });
  moveSong(*moved, *album);
  into->cancelAndDrop();
  import->cancelAndDrop();
  EXPECT_EQ(moved->album(), album.get());
  EXPECT_EQ(album->songs().size(), 1U);
  QBSession::session().undo();
  EXPECT_EQ(moved->album(), home);
  QBSession::session().undo();
  EXPECT_TRUE(album->isDeleted()) << "it came with the import";
  EXPECT_EQ(stored("QBChord"), 0U);
}

}  // namespace
}  // namespace korvel
