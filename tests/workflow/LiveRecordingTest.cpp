// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/takes/LiveRecording.h"

#include "model/store/KorvelModel.h"
#include "platform/files/FileError.h"
#include "platform/media/WaveFileReader.h"
#include "platform/sound/AudioSystem.h"
#include "support/JumpingLoop.h"
#include "support/Testing.h"
#include "support/sound/Guitar.h"
#include "support/sound/HandFedMicrophone.h"
#include "support/store/FileSizeLimit.h"
#include "support/store/StandardStore.h"
#include "workflow/takes/TakeFiles.h"
#include "workflow/takes/Takes.h"

namespace korvel {
namespace {

namespace fs = std::filesystem;
using State = LiveRecording::State;
using Samples = std::vector<std::int16_t>;

constexpr std::size_t kBlock = 16384;

struct LiveRecordingTest : testing::Test {
  LiveRecordingTest() {
    ::setenv("XDG_DATA_HOME", m_store.folder().path().c_str(), 1);
    QBTabMgr& db = QBTabMgr::db();
    db.createInstrument(m_store.standard(), "Guitar", true, true, 0.5F, 1);
    QBHarmony* minor = db.createHarmony("m", 1);
    for (const int step : {0, 3, 4}) minor->addStep(step, step);
    db.setHarmonies({minor});
    db.loadInstruments();
    db.context().save();
  }
  ~LiveRecordingTest() override { ::unsetenv("XDG_DATA_HOME"); }

  LiveRecording& begin(LiveRecording::Options options = {}) {
    options.album = options.album.value_or("Live");
    options.title = "T";
    m_recording = std::make_unique<LiveRecording>(QBTabMgr::db(), options);
    m_recording->onChord([this](QBChord& chord) { m_heard += test::fretsOf(chord) + ' '; });
    m_recording->start();
    return *m_recording;
  }
  /// Both channels of a chord of so many blocks; the live chain takes a block in two steps.
  Samples strum(const std::string& shape, int blocks) const {
    const double seconds = blocks * 8192 / 44100.0 + 0.001;
    Samples stereo = test::stereo(test::play({{test::notesOf(shape), seconds}}));
    stereo.resize(static_cast<std::size_t>(blocks) * kBlock);
    return stereo;
  }
  void hear(const Samples& sound) {
    for (std::size_t i = 0; i + kBlock <= sound.size(); i += kBlock)
      m_microphone.hear(std::span(sound).subspan(i, kBlock));
  }
  void finish() {
    m_loop.loop().runUntil([this] { return m_recording->state() == State::over; });
  }
  static std::string songs() {
    std::string list;
    for (const auto& album : QBTabMgr::db().albums())
      for (const QBSong* song : album->songs()) list += album->name() + '/' + song->title() + ' ';
    return list;
  }
  /// As another program would find them after this one has died.
  std::int64_t chordsInCopyOfStore() const {
    const auto& folder = m_store.folder();
    for (const char* ending : {"", "-wal"}) {
      const fs::path file = folder.file(std::string("Korvel.sqlite") + ending);
      if (fs::exists(file)) fs::copy(file, folder.file(std::string("copy.sqlite") + ending));
    }
    return storeFile(folder.file("copy.sqlite")).open()->integer("SELECT count(*) FROM QBChord");
  }
  std::vector<fs::path> takes() const { return takeFilesLeft(); }

  test::StandardStore m_store;
  test::HandFedMicrophone m_microphone;
  test::JumpingLoop m_loop;
  std::string m_heard;
  std::unique_ptr<LiveRecording> m_recording;
};

TEST_F(LiveRecordingTest, liveChordsAreStoredAndThenReplacedByTheHeardWhole) {
  LiveRecording& recording = begin();
  EXPECT_EQ(recording.state(), State::recording);
  hear(strum("x02210", 12));
  m_loop.run(std::chrono::milliseconds(220));
  EXPECT_NEAR(recording.elapsed(), 4 * 8192 / 44100.0, 1e-9) << "a block in 0.05 s";
  EXPECT_GT(recording.level(), 0.1F);
  EXPECT_LT(recording.level(), 1.0F);
  EXPECT_EQ(std::ranges::count(m_heard, ' '), 4);
  EXPECT_TRUE(takes().empty()) << "the take of a recording that goes on is not left behind";
  recording.stop();
  std::int64_t storedBefore = 0;
  std::vector<double> progress;
  recording.onProgress([&](double share) { progress.push_back(share); });
  recording.onState([&](State state) {
    if (state == State::hearing) storedBefore = chordsInCopyOfStore();
  });
  finish();
  EXPECT_EQ(std::ranges::count(m_heard, ' '), 12) << "what waited is heard as well";
  EXPECT_EQ(storedBefore, 12);
  EXPECT_TRUE(!progress.empty() && std::ranges::is_sorted(progress) && progress.back() == 1);
  ASSERT_NE(recording.song(), nullptr);
  EXPECT_TRUE(recording.isHeardWhole());
  EXPECT_EQ(songs(), "Live/T ");
  EXPECT_EQ(test::fretsOf(*recording.song()).find("x02210 x02210 x02210 "), 0U)
      << test::fretsOf(*recording.song());
  EXPECT_EQ(recording.song()->chords().at(0)->fullHarmonyName(), "Am");
  EXPECT_NE(recording.song()->tabulature().find("\n        T"), std::string::npos);
  EXPECT_FALSE(QBTabMgr::db().context().hasChanges());
  EXPECT_TRUE(takes().empty() && !recording.takeLeft());
  EXPECT_TRUE(QBTabMgr::db().undo());
  EXPECT_EQ(songs(), "") << "one action from start to end";
  EXPECT_TRUE(QBTabMgr::db().redo());
  EXPECT_EQ(songs(), "Live/T ");
}

TEST_F(LiveRecordingTest, classicLeavesTheLiveSongAndAKeptTakeHasSilenceForLostBlocks) {
  const std::string file = m_store.folder().file("kept.wav");
  LiveRecording& recording =
      begin({.detection = &classicDetection(), .seconds = 1.2, .keptTake = file});
  const Samples sound = strum("x02210", 7);
  hear(Samples(sound.begin(), sound.begin() + 2 * kBlock));
  m_microphone.hear(std::span(sound).subspan(2 * kBlock, 8000));  // lost, and so is what follows
  hear(Samples(sound.begin() + 3 * kBlock, sound.end()));
  finish();
  EXPECT_EQ(std::ranges::count(m_heard, ' '), 6) << "1.2 seconds are full";
  EXPECT_FALSE(recording.isHeardWhole());
  EXPECT_EQ(songs(), "Live/T ");
  EXPECT_EQ(recording.song()->chords().size(), 6U);
  EXPECT_FALSE(QBTabMgr::db().context().hasChanges());
  EXPECT_NEAR(recording.lostSeconds(), 4000 / 44100.0, 1e-9);
  EXPECT_EQ(recording.takeLeft(), file);
  Samples expected = sound;
  expected.erase(expected.begin() + 2 * kBlock, expected.begin() + 3 * kBlock);
  expected.insert(expected.begin() + 2 * kBlock, 8000, 0);
  platform::WaveFileReader reader(file);
  Samples kept(2 * expected.size());
  kept.resize(reader.read(kept));
  EXPECT_EQ(kept, expected);
  EXPECT_THROW(begin({.keptTake = file}), platform::FileError) << "there is such a file";
}

TEST_F(LiveRecordingTest, blocksThatComeWhileTheDeviceEndsAreHeard) {
  LiveRecording& recording = begin({.detection = &classicDetection()});
  m_microphone.whenAsked = [this] {  // when the step has found none
    hear(strum("x02210", 4));
    m_microphone.end(false);
  };
  finish();
  EXPECT_EQ(recording.ending(), LiveRecording::Ending::deviceEnded);
  ASSERT_NE(recording.song(), nullptr);
  EXPECT_EQ(recording.song()->chords().size(), 4U);
}

TEST_F(LiveRecordingTest, lostDeviceKeepsWhatWasRecorded) {
  LiveRecording& recording = begin();
  hear(strum("x02210", 8));
  m_microphone.end(true);
  finish();
  EXPECT_EQ(recording.ending(), LiveRecording::Ending::deviceLost);
  EXPECT_TRUE(recording.isHeardWhole());
  EXPECT_EQ(songs(), "Live/T ");
}

TEST_F(LiveRecordingTest, cancelledHearingLeavesTheLiveSong) {
  LiveRecording& recording = begin();
  recording.onProgress([&](double) { recording.cancel(); });
  hear(strum("x02210", 8));
  recording.stop();
  finish();
  ASSERT_NE(recording.song(), nullptr);
  EXPECT_FALSE(recording.isHeardWhole());
  EXPECT_EQ(test::fretsOf(*recording.song()), m_heard);
  EXPECT_EQ(songs(), "Live/T ");
  EXPECT_FALSE(QBTabMgr::db().context().hasChanges());
  EXPECT_FALSE(recording.takeLeft());
  EXPECT_TRUE(recording.song()->isWhole()) << "as the user wished";
  EXPECT_EQ(recording.song()->tabulature().find("not heard"), std::string::npos);
}

TEST_F(LiveRecordingTest, programThatEndsStoresWhatWasHeardLiveAndKeepsTheSound) {
  LiveRecording& recording = begin();
  hear(strum("x02210", 8));
  m_loop.run(std::chrono::milliseconds(120));
  recording.endNow();
  EXPECT_EQ(recording.state(), State::over);
  ASSERT_NE(recording.song(), nullptr);
  EXPECT_EQ(recording.song()->chords().size(), 8U);
  EXPECT_FALSE(QBTabMgr::db().context().hasChanges());
  ASSERT_TRUE(recording.takeLeft().has_value());
  m_recording.reset();
  const auto left = takesLeft();
  ASSERT_EQ(left.size(), 1U);
  ASSERT_NE(left.front().song, nullptr);
  EXPECT_EQ(left.front().song->title(), "T");
  EXPECT_NEAR(left.front().seconds, 8 * 8192 / 44100.0, 1e-9);
}

TEST_F(LiveRecordingTest, songThatIsDeletedMeanwhileLeavesTheTake) {
  for (const State during : {State::recording, State::hearing}) {
    LiveRecording& recording = begin();
    const auto deleteAt = [&](State state) {
      if (state == during) QBTabMgr::db().deleteAlbum(QBTabMgr::db().findAlbumByName("Live"));
    };
    hear(strum("x02210", 8));
    m_loop.run(std::chrono::milliseconds(220));
    deleteAt(State::recording);
    recording.onState(deleteAt);
    recording.stop();
    finish();
    EXPECT_EQ(recording.song(), nullptr);
    EXPECT_EQ(songs(), "");
    EXPECT_NE(recording.problem().value_or(platform::UserText()).english().find("deleted"),
              std::string::npos);
    EXPECT_TRUE(recording.takeLeft().has_value());
  }
}

TEST_F(LiveRecordingTest, albumThatOthersUseStaysWhenNothingIsHeard) {
  LiveRecording& recording = begin();
  QBTabMgr::db().findAlbumByName("Live")->createSong("Other");
  recording.stop();
  finish();
  EXPECT_EQ(songs(), "Live/Other ");
}

TEST_F(LiveRecordingTest, folderThatNothingCanBeMadeInIsNamed) {
  const fs::path folder = m_store.folder().path() / "korvel" / "takes";
  fs::create_directories(folder.parent_path());
  fs::create_directory_symlink(folder, folder);
  EXPECT_THROW(begin(), platform::FileError);
  EXPECT_EQ(songs(), "");
}

TEST_F(LiveRecordingTest, nothingHeardLeavesNothing) {
  for (const std::size_t blocks : {0U, 10U}) {
    LiveRecording& recording = begin();
    hear(Samples(blocks * kBlock));
    recording.stop();
    finish();
    EXPECT_EQ(recording.song(), nullptr);
    EXPECT_EQ(songs(), "");
    EXPECT_TRUE(QBTabMgr::db().albums().empty());
    EXPECT_TRUE(takes().empty() && !recording.problem());
  }
  EXPECT_THROW(begin({.device = "missing"}), platform::AudioError);
  EXPECT_TRUE(QBTabMgr::db().albums().empty() && takes().empty());
  EXPECT_FALSE(QBTabMgr::db().context().hasChanges());
}

TEST_F(LiveRecordingTest, takeStaysWhereTheProgramDiesOrTheDiskIsFull) {
  begin();
  hear(strum("x02210", 4));
  m_loop.run(std::chrono::milliseconds(220));
  m_recording.reset();
  EXPECT_EQ(songs(), "");
  ASSERT_EQ(takes().size(), 1U);
  Samples kept(5 * kBlock);
  EXPECT_EQ(platform::WaveFileReader(takes().front()).read(kept), 4 * kBlock);
  LiveRecording& recording = begin();
  EXPECT_EQ(takes().size(), 1U);
  hear(strum("x02210", 12));
  {
    const test::FileSizeLimit full(3 * 32768);
    m_loop.run(std::chrono::milliseconds(420));
  }
  ASSERT_EQ(takes().size(), 2U);
  EXPECT_EQ(platform::WaveFileReader(takes().back()).read(kept) / kBlock, 2U);
  recording.stop();
  finish();
  EXPECT_TRUE(recording.isHeardWhole()) << "what is in memory is enough";
  EXPECT_NE(recording.takeProblem().value_or(platform::UserText()).english().find("File too large"),
            std::string::npos);
}

}  // namespace
}  // namespace korvel
