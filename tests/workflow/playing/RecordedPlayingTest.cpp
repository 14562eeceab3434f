// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/recorded/SongRecording.h"
#include "music/ChordStep.h"
#include "platform/media/ContentHash.h"
#include "platform/midi/SilentSynthesizer.h"
#include "support/JumpingLoop.h"
#include "support/RecordingViews.h"
#include "support/Testing.h"
#include "support/sound/Guitar.h"
#include "support/sound/HandAudio.h"
#include "support/store/ScratchFolder.h"
#include "support/store/StandardStore.h"
#include "workflow/playing/MomentPlayer.h"
#include "workflow/playing/PracticeMemory.h"
#include "workflow/playing/QBPlayerViewController.h"
#include "workflow/playing/RecordedMoment.h"
#include "workflow/recordings/FileContent.h"
#include "workflow/recordings/PlacedRecording.h"
#include "workflow/recordings/RecordingSound.h"
#include "workflow/session/EditRefused.h"
#include "workflow/session/QBSession.h"

namespace korvel {
namespace {

struct NoticedControls final : PlayerControls {
  void lockMIDI() override {}
  void unlockAll() override {}
  void showLoop(const LoopRange&) override {}
  void showPosition(const std::string&) override {}
  void showSpeed(const std::string&) override {}
  void showProblem(const platform::UserText& problem) override { told = problem.english(); }
  void showNotice(const platform::UserText& notice) override { told = notice.english(); }
  int speed() const override { return percent; }
  int fullSpeed() const override { return 100; }

  int percent = 100;
  std::string told;
};

/// A song of eight chords, of which each fourth is heard in its recording: every 1.5 seconds.
struct RecordedPlayingTest : testing::Test {
  RecordedPlayingTest() {
    std::vector<std::int16_t> samples(static_cast<std::size_t>(8 * 16384));
    for (const std::size_t chord : {0U, 4U})
      for (std::size_t i = 0; i < 4000; ++i)
        samples[chord * 16384 + i] = static_cast<std::int16_t>(i % 100 < 50 ? 9000 : -9000);
    test::writeWav(m_file, samples);
    m_song = m_store.song("Song");
    for (int i = 0; i < 8; ++i) test::addChord(m_song, "022100")->setTimestamp(i * 16384);
    platform::ContentHash hash(m_file);
    while (hash.step()) continue;
    SongRecording* recording = QBTabMgr::db().createRecording(m_file);
    recording->setSize(hash.size());
    recording->setHash(hash.digits());
    m_song->setRecording(recording);
    QBSession::session().setActiveSong(m_song);
  }
  ~RecordedPlayingTest() override { QBSession::session().setActiveSong(nullptr); }

  std::unique_ptr<platform::MusicPlayer> newPlayer() {
    auto player = std::make_unique<platform::MusicPlayer>(
        m_audio, "", std::make_unique<platform::SilentSynthesizer>());
    m_device = player.get();
    return player;
  }
  void pass(double seconds) {
    for (int i = 0; i < std::lround(seconds * 44100 / 512); ++i) {
      if (m_player.isPlaying() && m_device->deck())
        m_device->deck()->awaitAhead(std::chrono::seconds(20));
      m_audio.play(512);
    }
  }
  /// Frames at which something begins to be heard after a silence.
  std::vector<std::size_t> onsets() const {
    std::vector<std::size_t> found;
    std::size_t quiet = 44100;
    const auto heard = m_audio.heard();
    for (std::size_t i = 0; i < heard.size() / 2; ++i) {
      if (std::abs(heard[2 * i]) > 3000 && quiet > 10000) found.push_back(i);
      quiet = std::abs(heard[2 * i]) > 3000 ? 0 : quiet + 1;
    }
    return found;
  }

  test::ScratchFolder m_folder;
  std::string m_file = m_folder.file("a.wav");
  const test::StandardStore m_store;
  test::RecordingViews m_views;
  platform::Ref<QBSong> m_song;
  test::HandAudio m_audio;
  test::JumpingLoop m_loop{[this](double seconds) { pass(seconds); }};
  NoticedControls m_controls;
  platform::MusicPlayer* m_device = nullptr;
  QBPlayerViewController m_player{QBSession::session(), m_controls, [this] { return newPlayer(); }};
};

TEST_F(RecordedPlayingTest, loopsOfTheRecordingKeepTimeAndGetFaster) {
  m_song->setFromChord(m_song->allChords().at(4));
  m_song->setToChord(m_song->allChords().at(7));
  PlayedSound sound{.mix = 0};
  sound.rounds = {BetweenRounds::nothing, platform::SpeedRamp{0.5, 0.5, 1}};
  m_player.setSound(sound);
  m_player.play();
  m_loop.run(std::chrono::duration<double>(7));
  EXPECT_EQ(m_controls.told, "");
  const auto heard = onsets();
  ASSERT_GE(heard.size(), 3U);
  const double round = 4 * kSecondsOfChord * 44100;
  EXPECT_NEAR(static_cast<double>(heard[1] - heard[0]), 2 * round, 900);
  EXPECT_NEAR(static_cast<double>(heard[2] - heard[1]), round, 900);
  m_player.skipBars(-9);
  EXPECT_NEAR(*m_player.recordedSeconds(), 4 * kSecondsOfChord, 0.4);
  m_player.stop();
}

TEST_F(RecordedPlayingTest, whatIsHeardChangesWhereItPlays) {
  PlayedSound sound;
  m_player.setSound(sound);
  m_player.play();
  m_loop.run(std::chrono::duration<double>(1.6));
  QBSession::session().setActiveSong(m_store.song("Other"));
  const std::function<void()> changes[] = {
      [&] { sound.mix = 0.5; }, [&] { sound.silent.strings = 1U << 1U; },
      [&] { sound.recordedPitch = true; }, [&] { sound.silent.voice = OwnVoice::bass; }};
  double place = m_player.secondsHeard();
  EXPECT_NEAR(place + kSecondsOfChord, 1.6, kSecondsOfChord);
  for (const auto& change : changes) {
    change();
    m_player.setSound(sound);
    ASSERT_TRUE(m_player.isPlaying());
    EXPECT_EQ(m_player.song(), m_song);
    m_loop.run(std::chrono::duration<double>(0.1));
    m_player.followSound();
    EXPECT_NEAR(*m_player.recordedSeconds(), place + 0.1, kSecondsOfChord);
    EXPECT_GE(m_player.secondsHeard(), place - 1e-6);
    place = m_player.secondsHeard();
  }
  while (m_player.isPlaying() && *m_player.recordedSeconds() < 7.1 * kSecondsOfChord)
    m_loop.run(std::chrono::duration<double>(0.05));
  sound.silent = {};
  m_player.setSound(sound);
  m_loop.run(std::chrono::duration<double>(0.1));
  EXPECT_GT(*m_player.recordedSeconds(), 5 * kSecondsOfChord) << "the last chord";
  EXPECT_EQ(m_controls.told, "");
  m_loop.run(std::chrono::duration<double>(4));
  EXPECT_FALSE(m_player.isPlaying()) << "to its end";
}

TEST_F(RecordedPlayingTest, aMomentIsHeardAlone) {
  MomentPlayer moments([this](bool withGuitar) {
    EXPECT_FALSE(withGuitar);
    return newPlayer();
  });
  const auto moment = momentOf(*m_song, 3);
  ASSERT_TRUE(moment);
  EXPECT_NEAR(moment->second, 3 * kSecondsOfChord, 1e-6);
  EXPECT_TRUE(moments.hear(*m_song, moment->second, kSecondsOfChord + 0.05).empty());
  for (int i = 0; i < 100; ++i) {
    m_device->deck()->awaitAhead(std::chrono::seconds(20));
    m_audio.play(512);
  }
  const auto heard = onsets();
  ASSERT_EQ(heard.size(), 1U) << "of the chord behind it, at its end";
  EXPECT_NEAR(static_cast<double>(heard[0]), 16384, 100);
  moments.stop();
}

TEST_F(RecordedPlayingTest, whatIsGoneIsSaidAndFoundAgainByItsContent) {
  std::filesystem::rename(m_file, m_folder.file("moved.wav"));
  m_player.setSound({.mix = 0.3});
  m_player.play();
  EXPECT_NE(m_controls.told.find("a.wav: the recording is not there any more"), std::string::npos)
      << m_controls.told;
  EXPECT_TRUE(m_player.isPlaying()) << "the guitar";
  m_player.stop();
  test::writeWav(m_folder.file("other.wav"), {1, 2, 3});
  EXPECT_THROW(placeRecording(*m_song, m_folder.file("other.wav")), EditRefused);
  test::writeWav(m_file, std::vector<std::int16_t>(8 * 16384));
  m_player.play();
  EXPECT_NE(m_controls.told.find("has changed"), std::string::npos) << m_controls.told;
  m_player.stop();
  placeRecording(*m_song, m_folder.file("moved.wav"));
  EXPECT_NE(openRecording(*m_song).sound, nullptr);
}

TEST_F(RecordedPlayingTest, aLongFileIsTakenBeforeItIsProven) {
  constexpr std::uintmax_t kLong = std::uintmax_t{60} << 20;
  std::filesystem::resize_file(m_file, kLong);
  SongRecording& recording = *m_song->recording();
  recording.setSize(kLong);
  EXPECT_TRUE(isRecording(recording, m_file, Proof::atOnce)) << "by its size";
  readingContent(m_file).finish();
  EXPECT_FALSE(isRecording(recording, m_file, Proof::atOnce)) << "it has another content";
  recording.setHash(contentOf(m_file));
  EXPECT_TRUE(isRecording(recording, m_file));
}

TEST_F(RecordedPlayingTest, aSongGoesOnBehindTheEndOfItsRecording) {
  test::writeWav(m_file, std::vector<std::int16_t>(16384, 9000));
  m_song->recording()->setSize(static_cast<std::int64_t>(std::filesystem::file_size(m_file)));
  m_song->recording()->setHash("");
  m_player.setSound({.mix = 0});
  m_player.play();
  m_loop.run(std::chrono::duration<double>(2));
  EXPECT_TRUE(m_player.isPlaying());
  EXPECT_NE(m_controls.told.find("the recording ends before the song"), std::string::npos)
      << m_controls.told;
  m_player.setSound({.mix = 0.5});
  m_loop.run(std::chrono::duration<double>(3));
  EXPECT_FALSE(m_player.isPlaying()) << "to its own end";
  MomentPlayer moments([this](bool) { return newPlayer(); });
  EXPECT_EQ(moments.hear(*m_song, 2, 1).english(), "Song: the recording ends before this place");
}

TEST_F(RecordedPlayingTest, practiceIsRememberedInWordsOfItsOwn) {
  PlayedSound sound{.mix = 0.25, .apart = true, .cents = -50, .silent = {6, OwnVoice::bass}};
  sound.rounds = {BetweenRounds::clicks, platform::SpeedRamp{0.6, 0.05, 2}};
  const std::string text = textOf(PractisedSong{0.75, sound});
  EXPECT_EQ(text,
            "rate=0.75 mix=0.25 apart=1 cents=-50 silent=6 voice=bass between=clicks ramp=60:5:2");
  EXPECT_EQ(textOf(practisedOf(text)), text);
  EXPECT_EQ(textOf(practisedOf("rate=0,75 mix=0,5 ramp=60,5:2,5:2 silent=1e300")),
            "rate=0.75 mix=0.5 ramp=60.5:2.5:2")
      << "by a window in another language";
  EXPECT_EQ(textOf(practisedOf("rate=nan x mix=7 later=1 ramp=1:2 silent=-1 voice=7")), "rate=1");
}

}  // namespace
}  // namespace korvel
