// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/playing/QBPlayerViewController.h"

#include "music/ChordStep.h"
#include "platform/midi/FluidSynthesizer.h"
#include "platform/persistence/UndoManager.h"
#include "support/JumpingLoop.h"
#include "support/RecordingViews.h"
#include "support/Script.h"
#include "support/Testing.h"
#include "support/songs/BeatSong.h"
#include "support/sound/HandAudio.h"
#include "support/sound/SoundFont.h"
#include "support/store/StandardStore.h"
#include "workflow/playing/HeldChord.h"

namespace korvel {
namespace {

using test::Words;

struct Controls final : PlayerControls {
  void lockMIDI() override { told.emplace_back("locked"); }
  void unlockAll() override { told.emplace_back("unlocked"); }
  void showLoop(const LoopRange& loop) override {
    told.push_back("loop " + std::to_string(loop.from) + " " + std::to_string(loop.to));
  }
  void showPosition(const std::string& percent) override { told.push_back(percent); }
  void showSpeed(const std::string& percent) override { told.push_back("speed " + percent); }
  void showTempo(double beatsPerMinute) override {
    if (beatsPerMinute > 0) told.push_back("tempo " + std::to_string(std::lround(beatsPerMinute)));
  }
  void showProblem(const platform::UserText& problem) override {
    told.push_back(problem.english());
  }
  int speed() const override { return slider; }
  int fullSpeed() const override { return 200; }

  std::vector<std::string> told;
  int slider = 200;
};

struct QBPlayerViewControllerTest : testing::Test {
  QBPlayerViewControllerTest() {
    SessionViews views = QBSession::session().views();
    views.player = &m_player;
    QBSession::session().attach(views);
  }
  ~QBPlayerViewControllerTest() override { QBSession::session().setActiveSong(nullptr); }

  void make(int chords, const std::string& frets) {
    m_song = m_store.song("Song");
    for (int i = 0; i < chords; ++i) test::addChord(m_song, frets);
  }
  std::unique_ptr<platform::MusicPlayer> newPlayer() {
    return std::make_unique<platform::MusicPlayer>(
        m_audio, m_device, std::make_unique<platform::FluidSynthesizer>(m_font, std::vector{25}));
  }
  void listen(double seconds) { m_loop.run(std::chrono::duration<double>(seconds)); }
  /// What the controls were told since, and how things stand.
  std::string news() {
    std::string text;
    for (const auto& each : std::exchange(m_controls.told, {})) text += each + ", ";
    if (m_player.isPlaying()) text += m_player.isOver() ? "over " : "plays ";
    if (std::exchange(m_views.playPosition, 0) > 0) text += "marked ";
    return text + (m_views.tabLocked ? "locked" : "");
  }
  auto after(const std::function<void(const Words&)>& act) {
    return [this, act](const Words& words) { return act(words), news(); };
  }
  /// As an edit that can be undone.
  void edit(const std::function<void()>& work) {
    const platform::UndoGroup group(QBTabMgr::db().context().undoManager(),
                                    platform::UserText::verbatim("Edit"));
    work();
  }
  const platform::Ref<QBChord>& chord(const Words& words, std::size_t at) {
    return m_song->allChords().at(static_cast<std::size_t>(words.number(at)));
  }

  const test::StandardStore m_store;
  test::RecordingViews m_views;
  platform::Ref<QBSong> m_song;
  test::HandAudio m_audio;
  test::JumpingLoop m_loop{[this](double seconds) {
    m_audio.play(static_cast<std::size_t>(std::lround(seconds * 44100)));
  }};
  Controls m_controls;
  std::string m_device, m_font = test::kSoundFont;
  QBPlayerViewController m_player{QBSession::session(), m_controls, [this] { return newPlayer(); }};
};

TEST_F(QBPlayerViewControllerTest, aLoopSoundsWholeAtEveryRateAndBeginsAgain) {
  for (const int speed : {200, 500}) {
    m_song = m_store.song("Silence and a chord");
    for (const char* frets : {"xxxxxx", "xxxxxx", "022100"}) test::addChord(m_song, frets);
    m_song->setFromChord(m_song->chords().at(1));
    m_song->setToChord(m_song->chords().at(2));
    m_controls.slider = speed;
    QBSession::session().setActiveSong(m_song);
    m_player.play();
    const std::size_t before = m_audio.heard().size();
    const double step = kSecondsOfChord * 200 / speed;
    listen(3.5 * step);
    const auto sound = m_audio.heard();
    const auto loud = std::count_if(sound.begin() + static_cast<std::ptrdiff_t>(before),
                                    sound.end(), [](int sample) { return std::abs(sample) > 100; });
    EXPECT_GT(static_cast<double>(loud) / static_cast<double>(sound.size() - before), 0.8 / 3.5)
        << speed;
    m_controls.told.clear();
    listen(3 * step);
    EXPECT_FALSE(m_controls.told.empty()) << "again";
    EXPECT_TRUE(m_player.isPlaying());
    m_player.stop();
  }
}

TEST_F(QBPlayerViewControllerTest, playsAsWritten) {
  QBSession& session = QBSession::session();
  test::expectScript(
      "playing/player.txt",
      {{"song", after([&](const Words& words) { make(words.number(0), words[1]); })},
       {"onBeats", after([&](const Words& words) {  // a beat each
          m_song->setTempo(words.number(0));
          for (const auto& each : m_song->allChords()) each->setTicks(12);
        })},
       {"append", after([&](const Words& words) { test::addChord(m_song, words[0]); })},
       {"loop", after([&](const Words& words) {
          m_song->setFromChord(chord(words, 0));
          m_song->setToChord(chord(words, 1));
        })},
       {"choose", after([&](const Words&) { session.setActiveSong(m_song); })},
       {"chooseOther", after([&](const Words&) { session.setActiveSong(m_store.song("Other")); })},
       {"delete", after([&](const Words&) {
          session.setActiveSong(nullptr);
          QBTabMgr::db().deleteSong(m_song);
        })},
       {"play", after([&](const Words&) { m_player.play(); })},
       {"stop", after([&](const Words&) { m_player.stop(); })},
       {"run", after([&](const Words& words) { listen(words.real(0)); })},
       {"slider", after([&](const Words& words) {
          m_controls.slider = words.number(0);
          m_player.speedChanged();
        })},
       {"metronome", after([&](const Words& words) { m_player.setMetronome(words[0] == "on"); })},
       {"loudest",  // of all that was heard so far
        [&](const Words&) {
          const int loudest = std::ranges::max(m_audio.heard());
          return loudest > 1000 ? "loud" : std::to_string(loudest);
        }},
       {"lose", after([&](const Words&) { m_audio.lose(); })},
       {"device", after([&](const Words& words) { m_device = words[0]; })},
       {"font", after([&](const Words& words) { m_font = words[0]; })},
       {"save", after([&](const Words&) {
          m_song->setAlbum(QBTabMgr::db().createAlbum("Album", false));
          QBTabMgr::db().save();
        })},
       {"editLoop",
        after([&](const Words& words) { edit([&] { m_song->setFromChord(chord(words, 0)); }); })},
       {"rename", after([&](const Words& words) { edit([&] { m_song->setTitle(words[0]); }); })},
       {"undo", after([&](const Words&) { EXPECT_TRUE(session.undo()); })}});
}

TEST_F(QBPlayerViewControllerTest, handHoldsWhatRingsOn) {
  m_song = test::beatSong(m_store.song("Tied"), "0xxxx3 w_0w. | rh rh |");
  EXPECT_EQ(chordHeldAt(*m_song, 0), 0);
  EXPECT_EQ(chordHeldAt(*m_song, 1), 0);
  EXPECT_EQ(chordHeldAt(*m_song, 2), 2) << "silence";
}

TEST_F(QBPlayerViewControllerTest, placeIsToldAsItIsHeardAfterTheCountIn) {
  make(6, "022100");
  m_song->setFromChord(m_song->chords().at(2));
  QBSession::session().setActiveSong(m_song);
  m_player.setCountIn(true);
  m_player.setClickVolume(0);
  m_player.play();
  m_controls.told.clear();
  listen(15 * kSecondsOfChord);
  m_player.followSound();
  EXPECT_TRUE(m_controls.told.empty()) << "four clicks, which are not heard";
  EXPECT_EQ(std::ranges::max(m_audio.heard()), 0);
  listen(1.1 * kSecondsOfChord);
  m_controls.told.clear();
  for (int i = 0; i < 4; ++i) {
    listen(0.3 * kSecondsOfChord);
    m_player.followSound();
  }
  EXPECT_NEAR(m_player.secondsHeard(), 3 * kSecondsOfChord, 1e-6);
  EXPECT_NEAR(m_player.secondsOfSong(), 6 * kSecondsOfChord, 1e-6);
  EXPECT_GE(m_controls.told.size(), 1U);
}

}  // namespace
}  // namespace korvel
