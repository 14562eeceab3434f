// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/recorded/SongRecording.h"
#include "support/JumpingLoop.h"
#include "support/RecordingViews.h"
#include "support/Testing.h"
#include "support/sound/Guitar.h"
#include "support/store/ScratchFolder.h"
#include "support/store/StandardStore.h"
#include "workflow/recordings/FileContent.h"
#include "workflow/recordings/KeepSoundCommand.h"
#include "workflow/recordings/KeptSounds.h"

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
  KeepSoundCommand job(*song);
  job.runInBackground();
  finish(job);
  EXPECT_TRUE(fs::exists(kept));
  EXPECT_EQ(job.m_percent, QBCommand::kAll);
  EXPECT_EQ(m_views.log.back(), "a: a copy of the recording is kept.");
}

}  // namespace
}  // namespace korvel
