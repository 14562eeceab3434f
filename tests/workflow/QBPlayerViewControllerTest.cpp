// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/playing/QBPlayerViewController.h"

#include "music/ChordStep.h"
#include "platform/loop/PlainRunLoop.h"
#include "platform/midi/FluidSynthesizer.h"
#include "platform/persistence/UndoManager.h"
#include "support/HandAudio.h"
#include "support/RecordingViews.h"
#include "support/SoundFont.h"
#include "support/StandardStore.h"
#include "support/Testing.h"

namespace korvel {
namespace {

using platform::PlainRunLoop;
using Texts = std::vector<std::string>;

/// A run loop whose time passes by listening.
class ListeningLoop {
 public:
  explicit ListeningLoop(test::HandAudio& audio) : m_audio(audio) {
    platform::RunLoop::install(&m_loop);
  }
  ~ListeningLoop() { platform::RunLoop::install(nullptr); }

  void run(double seconds) {
    const auto end = m_now + std::chrono::duration_cast<PlainRunLoop::Time::duration>(
                                 std::chrono::duration<double>(seconds));
    const auto wakening = m_loop.scheduleRepeating(seconds, [] {});
    m_loop.runUntil([&] { return m_now >= end; });
  }

 private:
  void listenUntil(PlainRunLoop::Time time) {
    const std::chrono::duration<double> passed = time - m_now;
    m_now = time;
    m_audio.play(static_cast<std::size_t>(std::lround(passed.count() * 44100)));
  }

  test::HandAudio& m_audio;
  PlainRunLoop::Time m_now;
  PlainRunLoop m_loop{{[this] { return m_now; }, [this](auto time) { listenUntil(time); }}};
};

struct Controls final : PlayerControls {
  void lockMIDI() override { told.emplace_back("locked"); }
  void unlockAll() override { told.emplace_back("unlocked"); }
  void showLoop(const LoopRange& loop) override {
    told.push_back("loop " + std::to_string(loop.from) + " " + std::to_string(loop.to));
  }
  void showPosition(const std::string& percent) override { told.push_back(percent); }
  void showSpeed(const std::string& percent) override { told.push_back("speed " + percent); }
  void showProblem(const platform::UserText& problem) override {
    told.push_back(problem.english());
  }
  int speed() const override { return slider; }
  int fullSpeed() const override { return 200; }
  Texts news() { return std::exchange(told, {}); }

  Texts told;
  int slider = 200;
};

struct QBPlayerViewControllerTest : testing::Test {
  QBPlayerViewControllerTest() {
    SessionViews views = QBSession::session().views();
    views.player = &m_player;
    QBSession::session().attach(views);
    for (int i = 0; i < 6; ++i) test::addChord(m_song, "022100");
  }
  ~QBPlayerViewControllerTest() override { QBSession::session().setActiveSong(nullptr); }

  void choose() {
    QBSession::session().setActiveSong(m_song);
    m_controls.told.clear();
  }
  std::unique_ptr<platform::MusicPlayer> newPlayer() {
    return std::make_unique<platform::MusicPlayer>(
        m_audio, m_device, std::make_unique<platform::FluidSynthesizer>(m_font, std::vector{25}));
  }

  const test::StandardStore m_store;
  test::RecordingViews m_views;
  QBSong* m_song = m_store.song("Song");
  test::HandAudio m_audio;
  ListeningLoop m_loop{m_audio};
  Controls m_controls;
  std::string m_device, m_font = test::kSoundFont;
  QBPlayerViewController m_player{m_controls, [this] { return newPlayer(); }};
};

TEST_F(QBPlayerViewControllerTest, aWholeSongStopsShortOfItsLastChord) {
  m_player.play();
  EXPECT_FALSE(m_player.isPlaying()) << "no song is chosen";
  choose();
  m_player.play();
  m_player.play();
  EXPECT_EQ(m_controls.news(), Texts{"locked"});
  m_loop.run(2.9);
  EXPECT_EQ(m_controls.news(), (Texts{" 16", " 33", " 50", " 66", " 83"}));
  EXPECT_FALSE(m_player.isOver());
  m_loop.run(2);
  EXPECT_EQ(m_controls.news(), Texts());
  EXPECT_TRUE(m_player.isOver());
  m_player.stop();
  m_player.stop();
  EXPECT_EQ(m_controls.news(), (Texts{"unlocked", "loop -1 -1"}));
  m_loop.run(1);
  EXPECT_EQ(m_controls.news(), Texts()) << "the timer is gone";
}

TEST_F(QBPlayerViewControllerTest, aLoopIsRewoundAtItsEnd) {
  m_song->setFromChord(m_song->chords().at(1));
  m_song->setToChord(m_song->chords().at(4));
  choose();
  m_player.play();
  m_controls.told.clear();
  m_loop.run(4);
  const Texts positions = m_controls.news();
  ASSERT_GE(positions.size(), 6U);
  EXPECT_EQ(Texts(positions.begin(), positions.begin() + 6),
            (Texts{" 33", " 66", "100", " 33", " 66", "100"}));
  EXPECT_FALSE(m_player.isOver());
}

TEST_F(QBPlayerViewControllerTest, aLoopGoesOnWhenItsEndIsPassedOver) {
  test::addChord(m_song, "xxxxxx");
  m_song->setFromChord(m_song->chords().at(0));
  m_song->setToChord(m_song->chords().at(6));
  m_controls.slider = 500;
  choose();
  m_player.play();
  m_loop.run(1.18);
  EXPECT_FALSE(m_player.isOver()) << "the empty chord is still to pass";
  EXPECT_NE(m_controls.news().back(), "100");
  m_loop.run(0.5);
  EXPECT_TRUE(m_player.isOver());
  m_player.keepLooping();
  EXPECT_FALSE(m_player.isOver());
  m_loop.run(0.8);
  EXPECT_FALSE(m_controls.news().empty());
}

TEST_F(QBPlayerViewControllerTest, aSongThatIsDeletedIsHeardNoMore) {
  choose();
  m_player.play();
  m_loop.run(1);
  QBSession::session().setActiveSong(nullptr);
  QBTabMgr::db().deleteSong(m_song);
  m_controls.told.clear();
  m_loop.run(1);
  EXPECT_FALSE(m_player.isPlaying());
  EXPECT_EQ(m_controls.news(), Texts{"unlocked"});
  EXPECT_FALSE(m_views.tabLocked);
  EXPECT_EQ(QBSession::session().activeSong(), nullptr);
}

TEST_F(QBPlayerViewControllerTest, markAndLocksStayWithTheSongThatPlays) {
  QBSession& session = QBSession::session();
  choose();
  m_player.play();
  m_loop.run(1);
  EXPECT_TRUE(m_views.tabLocked);
  session.setActiveSong(m_store.song("Other"));
  EXPECT_FALSE(m_views.tabLocked);
  m_views.playPosition = 0;
  m_controls.told.clear();
  m_loop.run(1);
  EXPECT_EQ(m_views.playPosition, 0) << "a mark on the other song";
  EXPECT_FALSE(m_controls.news().empty());
  session.setActiveSong(m_song);
  EXPECT_TRUE(m_views.tabLocked);
  m_loop.run(0.4);
  EXPECT_GT(m_views.playPosition, 0);
}

TEST_F(QBPlayerViewControllerTest, undoKeepsTheLocksUnlessItChangesWhatPlays) {
  platform::UndoManager& undo = QBTabMgr::db().context().undoManager();
  m_song->setAlbum(QBTabMgr::db().createAlbum("Album", false));
  QBTabMgr::db().save();
  choose();
  {
    const platform::UndoGroup group(undo, platform::UserText::verbatim("Set Loop"));
    m_song->setFromChord(m_song->chords().at(1));
  }
  {
    const platform::UndoGroup group(undo, platform::UserText::verbatim("Rename"));
    m_song->setTitle("New");
  }
  m_player.play();
  EXPECT_TRUE(QBSession::session().undo());
  EXPECT_TRUE(m_player.isPlaying());
  EXPECT_TRUE(m_views.tabLocked);
  EXPECT_TRUE(QBSession::session().undo());
  EXPECT_FALSE(m_player.isPlaying()) << "it played the loop";
  EXPECT_FALSE(m_views.tabLocked);
}

TEST_F(QBPlayerViewControllerTest, theSliderSetsTheSpeed) {
  choose();
  m_controls.slider = 100;
  m_player.speedChanged();
  m_player.play();
  m_loop.run(1.6);
  EXPECT_EQ(m_controls.news(), (Texts{"speed  50", "locked", " 16", " 16"}));
  m_controls.slider = 0;
  m_player.speedChanged();
  m_loop.run(1);
  EXPECT_EQ(m_controls.news().front(), "speed   0");
  EXPECT_FALSE(m_player.isOver()) << "it stands still";
}

TEST_F(QBPlayerViewControllerTest, theMetronomeIsHeardWhenItIsOn) {
  m_song = m_store.song("Silence");
  for (int i = 0; i < 6; ++i) test::addChord(m_song, "xxxxxx");
  choose();
  const auto loudest = [&] {
    m_player.play();
    m_loop.run(1.5);
    m_player.stop();
    return std::ranges::max(m_audio.heard());
  };
  EXPECT_EQ(loudest(), 0);
  m_player.play();
  m_loop.run(0.7);
  m_player.setMetronome(true);
  m_loop.run(1.5);
  EXPECT_GT(std::ranges::max(m_audio.heard()), 1000) << "from now on";
}

TEST_F(QBPlayerViewControllerTest, placeIsToldAsItIsHeardAfterTheCountIn) {
  m_song->setFromChord(m_song->chords().at(2));
  choose();
  m_player.setCountIn(true);
  m_player.setClickVolume(0);
  m_player.play();
  m_controls.told.clear();
  m_loop.run(15 * kSecondsOfChord);
  m_player.followSound();
  EXPECT_EQ(m_controls.news(), Texts()) << "four clicks, which are not heard";
  EXPECT_EQ(std::ranges::max(m_audio.heard()), 0);
  m_loop.run(1.1 * kSecondsOfChord);
  m_controls.told.clear();
  for (int i = 0; i < 4; ++i) {
    m_loop.run(0.3 * kSecondsOfChord);
    m_player.followSound();
  }
  EXPECT_NEAR(m_player.secondsHeard(), 3 * kSecondsOfChord, 1e-6);
  EXPECT_NEAR(m_player.secondsOfSong(), 6 * kSecondsOfChord, 1e-6);
  EXPECT_GE(m_controls.news().size(), 1U);
}

TEST_F(QBPlayerViewControllerTest, problemsEndInAMessageAndFreeControls) {
  choose();
  m_player.play();
  m_loop.run(1);
  m_audio.lose();
  m_controls.told.clear();
  m_loop.run(1);
  EXPECT_FALSE(m_player.isPlaying());
  const Texts lost = m_controls.news();
  ASSERT_EQ(lost.size(), 3U);
  EXPECT_NE(lost[2].find("device is gone"), std::string::npos);
  m_device = "Boombox";
  m_player.play();
  EXPECT_EQ(m_controls.news().back(), "Boombox: no such device");
  m_font = "/none.sf2";
  m_player.play();
  EXPECT_EQ(m_controls.news().back(), "/none.sf2: there is no such SoundFont; choose another one");
  EXPECT_FALSE(m_player.isPlaying());
}

}  // namespace
}  // namespace korvel
