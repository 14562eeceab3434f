// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/recorded/SongRecording.h"
#include "support/JumpingLoop.h"
#include "support/RecordingViews.h"
#include "support/Testing.h"
#include "support/sound/Guitar.h"
#include "support/store/FileSizeLimit.h"
#include "support/store/ScratchFolder.h"
#include "support/store/StandardStore.h"
#include "workflow/recordings/FileContent.h"
#include "workflow/recordings/KeepSoundCommand.h"
#include "workflow/recordings/KeptSounds.h"
#include "workflow/recordings/PlacedRecording.h"

namespace korvel {
namespace {

namespace fs = std::filesystem;

struct RecordingsTest : testing::Test {
  /// A song of a recording of that content, which lies there.
  QBSong* songOf(const fs::path& file, std::int16_t level) {
    fs::create_directories(file.parent_path());
    test::writeWav(file, std::vector<std::int16_t>(100000, level));
    SongRecording* recording = QBTabMgr::db().createRecording(file.string());
    recording->setSize(static_cast<std::int64_t>(fs::file_size(file)));
    recording->setHash(contentOf(file));
    recording->setSeconds(100000 / 44100.0);
    QBSong* song = m_album->createSong(file.stem().string());
    song->setRecording(recording);
    return song;
  }
  void finish(const QBCommand& job) {
    while (job.isRunning()) m_loop.run(std::chrono::duration<double>(0.1));
  }

  const test::StandardStore m_store;
  const test::ScratchFolder m_folder;
  test::RecordingViews m_views;
  test::JumpingLoop m_loop;
  platform::Ref<QBAlbum> m_album = QBTabMgr::db().createAlbum("Album", false);
};

TEST_F(RecordingsTest, aCopyIsKeptAsAWholeOrNotAtAll) {
  QBSong* song = songOf(m_folder.path() / "a.wav", 900);
  const fs::path kept = keptSoundOf(*song->recording());
  KeepSoundCommand cancelled(*song);
  cancelled.runInBackground();
  for (int i = 0; i < 3; ++i) cancelled.nextStep();
  cancelled.cancelAndDrop();
  EXPECT_TRUE(!fs::exists(kept.parent_path()) || fs::is_empty(kept.parent_path()));

  const std::string hash = song->recording()->hash();
  song->recording()->setHash("00ff");
  std::string problem;
  KeepSoundCommand ofAnother(*song);
  ofAnother.onEnded([&](const platform::UserText& text) { problem = text.english(); });
  ofAnother.runInBackground();
  finish(ofAnother);
  EXPECT_NE(problem.find("has changed since it was heard"), std::string::npos) << problem;

  song->recording()->setHash(hash);
  for (const rlim_t bytes : {rlim_t{0}, rlim_t{100}}) {
    const test::FileSizeLimit disk(bytes);
    KeepSoundCommand onFullDisk(*song);
    onFullDisk.onEnded([&](const platform::UserText& text) { problem = text.english(); });
    onFullDisk.runInBackground();
    finish(onFullDisk);
    EXPECT_NE(problem.find("cannot write"), std::string::npos) << problem;
    EXPECT_TRUE(fs::is_empty(kept.parent_path())) << bytes;
  }
  KeepSoundCommand job(*song);
  job.runInBackground();
  finish(job);
  EXPECT_TRUE(fs::exists(kept));
  EXPECT_EQ(job.m_percent, QBCommand::kAll);
  EXPECT_EQ(m_views.log.back(), "a: a copy of the recording is kept.");
}

TEST_F(RecordingsTest, whatWasMovedTogetherIsFoundTogether) {
  const fs::path before = m_folder.path() / "old";
  const fs::path after = m_folder.path() / "new";
  QBSong* song = songOf(before / "a.wav", 100);
  const QBSong* moved = songOf(before / "live" / "b.wav", 200);
  const QBSong* other = songOf(before / "c.wav", 300);
  const QBSong* elsewhere = songOf(m_folder.path() / "d.wav", 400);
  const QBSong* left = songOf(before / "e.wav", 500);
  fs::copy(before, after, fs::copy_options::recursive);
  for (const char* name : {"a.wav", "live/b.wav", "c.wav"}) fs::remove(before / name);
  fs::copy(after / "a.wav", after / "c.wav", fs::copy_options::overwrite_existing);
  fs::rename(after / "a.wav", after / "first.wav");

  readingPlaced(*song, after / "first.wav").finish();
  EXPECT_EQ(placeRecording(*song, after / "first.wav"), 1U);
  EXPECT_EQ(song->recording()->path(), (after / "first.wav").string());
  EXPECT_EQ(moved->recording()->path(), (after / "live" / "b.wav").string());
  EXPECT_EQ(other->recording()->path(), (before / "c.wav").string()) << "of another content there";
  EXPECT_EQ(left->recording()->path(), (before / "e.wav").string()) << "was not lost";
  EXPECT_EQ(elsewhere->recording()->path(), m_folder.file("d.wav"));
  EXPECT_EQ(m_views.log.back(), "Recordings found again: 2.");
}

}  // namespace
}  // namespace korvel
