// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sound/PracticePanel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QSpinBox>
#include <QTest>

#include "support/Testing.h"
#include "support/songs/BeatSong.h"
#include "support/store/StandardStore.h"
#include "ui/sound/PlayerBar.h"
#include "ui/views/FretboardView.h"

namespace korvel::ui {
namespace {

struct PracticePanelTest : testing::Test {
  PracticePanelTest() {
    for (const char* frets : {"x02210", "xxxxxx", "320003"}) test::addChord(m_song, frets);
    m_player.setSong(m_song);
    m_panel.setSong(m_song);
    m_panel.show();
  }

  template <class Control>
  Control* named(const QString& name) {
    for (auto* control : m_panel.findChildren<Control*>())
      if (control->accessibleName() == name) return control;
    return nullptr;
  }
  /// What is said of the neck while that chord is heard.
  QString neckAt(int chord) {
    m_panel.showChord(chord);
    return m_panel.findChild<FretboardView*>()->spokenText();
  }

  test::StandardStore m_store;
  QBSong* m_song = m_store.song("Waltz");
  PlayerBar m_player;
  PracticePanel m_panel{m_player};
};

TEST_F(PracticePanelTest, keysAreThePlayersOnceANumberIsTyped) {
  auto* speed = named<QSpinBox>("Speed");
  speed->setFocus();
  speed->selectAll();
  QTest::keyClicks(speed, "60");
  QTest::keyClick(speed, Qt::Key_Return);
  EXPECT_EQ(m_player.speed(), 60);
  EXPECT_EQ(m_panel.focusWidget(), &m_panel) << "no control of it";
  QTest::keyClick(&m_panel, Qt::Key_Up);
  QTest::keyClick(&m_panel, Qt::Key_Up);
  QTest::keyClick(&m_panel, Qt::Key_Down);
  EXPECT_EQ(m_player.speed(), 65);
  auto* faster = m_panel.findChild<QCheckBox*>();
  QTest::mouseClick(faster, Qt::LeftButton);
  EXPECT_TRUE(faster->isChecked());
  EXPECT_EQ(m_panel.focusWidget(), &m_panel);
}

TEST_F(PracticePanelTest, ownPartIsRememberedWithTheSongBeforeAnythingElseHappens) {
  named<QComboBox>("Voice that is not heard")->setCurrentIndex(6);
  named<QCheckBox>("String 1 is not heard")->setChecked(true);
  m_player.setSpeed(75);
  EXPECT_TRUE(QTest::qWaitFor([&] { return !m_song->practice().empty(); }, 20000));
  EXPECT_TRUE(m_song->practice().starts_with("rate=0.75")) << m_song->practice();
  EXPECT_TRUE(m_song->practice().ends_with("silent=2 voice=bass")) << m_song->practice();
  EXPECT_FALSE(QBTabMgr::db().context().hasChanges()) << "saved";
  m_player.setSong(m_store.song("Other"));
  EXPECT_EQ(named<QComboBox>("Voice that is not heard")->currentIndex(), 0);
  m_player.setSong(m_song);
  EXPECT_EQ(named<QComboBox>("Voice that is not heard")->currentIndex(), 6);
}

TEST_F(PracticePanelTest, nextChordIsShownAheadAndAtTheEndOfALoopItsFirst) {
  EXPECT_TRUE(neckAt(0).contains("Next: E string (6) fret 3")) << neckAt(0).toStdString();
  EXPECT_FALSE(neckAt(2).contains("Next")) << "the end";
  m_song->setFromChord(m_song->allChords()[0].get());
  m_song->setToChord(m_song->allChords()[2].get());
  EXPECT_TRUE(neckAt(2).contains("Next: A string open"));
  m_panel.hide();
  neckAt(0);
  m_panel.show();
  EXPECT_TRUE(m_panel.findChild<FretboardView*>()->spokenText().contains("Next: E string (6)"));
}

TEST_F(PracticePanelTest, barsAreThoseOfTheLoop) {
  QBSong* song = m_store.song("Bars");
  test::beatSong(song, "tempo=96 3/4 x02210 q q q | q q q | q q q |");
  song->setFromChord(song->allChords()[3].get());
  song->setToChord(song->allChords()[5].get());
  m_panel.setSong(song);
  EXPECT_EQ(named<QSpinBox>("First bar of the loop")->value(), 2);
  EXPECT_EQ(named<QSpinBox>("Last bar of the loop")->value(), 2);
  song->setToChord(nullptr);
  m_panel.setSong(song);
  EXPECT_EQ(named<QSpinBox>("Last bar of the loop")->value(), 3) << "to the end";
}

}  // namespace
}  // namespace korvel::ui
