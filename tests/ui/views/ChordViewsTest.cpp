// SPDX-License-Identifier: GPL-3.0-or-later
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

#include "model/book/QBLeftHandPattern.h"
#include "support/Testing.h"
#include "support/store/StandardStore.h"
#include "ui/roll/RollView.h"
#include "ui/views/FretboardView.h"

namespace korvel::ui {
namespace {

template <class View>
struct ChordViewTest : testing::Test {
  ChordViewTest() {
    for (const char* frets : {"x02210", "xxxxxx", "xx0e32"}) test::addChord(m_song, frets);
    m_view.resize(m_view.sizeHint());
    m_view.setSong(m_song);
    m_view.show();
  }

  void press(int key) { QTest::keyClick(&m_view, static_cast<Qt::Key>(key)); }

  test::StandardStore m_store;
  QBSong* m_song = m_store.song("Waltz");
  View m_view;
};

using FretboardViewTest = ChordViewTest<FretboardView>;

TEST_F(FretboardViewTest, everyFretIsReachedByMouseAndByKeys) {
  const QSignalSpy clicked(&m_view, &FretboardView::clicked);
  m_view.showChord(2);
  EXPECT_EQ(m_view.frets(), 24) << "fret 14 lies beyond the short neck";
  for (const int frets : {12, 24})
    for (int string = 0; string < 6; ++string)
      for (int fret = 0; fret <= frets; ++fret) {
        m_view.showChord(frets == 12 ? 0 : 2);
        m_view.moveCursor(0, 0);
        QTest::mouseClick(&m_view, Qt::LeftButton, {}, m_view.placeOf(string, fret));
        ASSERT_EQ(clicked.last(), (QVariantList{string, fret}));
      }
  m_view.setLeftHanded(true);
  const QPoint openString = m_view.placeOf(0, 0);
  EXPECT_GT(openString.x(), m_view.placeOf(0, 1).x()) << "the nut at the right";
  QTest::mouseClick(&m_view, Qt::LeftButton, {}, m_view.placeOf(2, 3));
  EXPECT_EQ(clicked.last(), (QVariantList{2, 3}));
  press(Qt::Key_Left);
  EXPECT_EQ(m_view.cursorFret(), 4);
  m_view.setLeftHanded(false);
  m_view.moveCursor(3, 1);
  for (const int key : {Qt::Key_Right, Qt::Key_Up, Qt::Key_Space}) press(key);
  EXPECT_EQ(clicked.last(), (QVariantList{4, 2}));
  for (const int key : {Qt::Key_Home, Qt::Key_Left, Qt::Key_Return}) press(key);
  EXPECT_EQ(clicked.last(), (QVariantList{4, 0}));
}

TEST_F(FretboardViewTest, saysTheGripInWords) {
  m_view.showChord(0);
  m_view.moveCursor(5, 3);
  EXPECT_EQ(
      m_view.spokenText(),
      "E string (1), fret 3: G. A string open, D string fret 2, G string fret 2, B string fret "
      "1, E string (1) open");
  m_view.showChord(1);
  EXPECT_TRUE(m_view.spokenText().endsWith("silent"));
  m_view.setSong(nullptr);
  EXPECT_EQ(m_view.spokenText(), "E string (1), fret 3: G");
}

TEST_F(FretboardViewTest, silencedTonesAndFingersAreDrawnDifferently) {
  const auto drawn = [this] {
    m_view.showChord(0);
    return m_view.grab().toImage();
  };
  const QImage plain = drawn();
  QBChord* chord = m_song->allChords()[0];
  chord->setLeftpattern(QBTabMgr::db().addLeftPattern("012300", 0));
  const QImage fingered = drawn();
  EXPECT_NE(fingered, plain);
  chord->hold()->findToneByString(2)->setActive(false);
  const QImage silenced = drawn();
  EXPECT_NE(silenced, fingered);
  chord->hold()->deleteToneOfString(2);
  const QImage without = drawn();
  EXPECT_NE(without, silenced);
  m_view.showNext(2);
  EXPECT_NE(drawn(), without) << "what comes next, ahead";
}

struct LongRollTest : ChordViewTest<RollView> {
  LongRollTest() {
    m_song = m_store.song("Long");
    for (int i = 0; i < 500; ++i) test::addChord(m_song, "x02210");
    m_view.resize(600, 200);
    m_view.setSong(m_song);
  }
};

TEST_F(LongRollTest, clicksAndKeysGoToTheChord) {
  const QSignalSpy chosen(&m_view, &RollView::chordChosen);
  QTest::mouseClick(m_view.viewport(), Qt::LeftButton, {}, m_view.chordRect(7).center());
  ASSERT_EQ(chosen.count(), 1);
  EXPECT_EQ(chosen[0][0].toInt(), 7);
  press(Qt::Key_Right);
  EXPECT_EQ(m_view.cursorChord(), 8);
  press(Qt::Key_End);
  EXPECT_EQ(chosen.last()[0].toInt(), 499);
  EXPECT_TRUE(m_view.viewport()->rect().contains(m_view.chordRect(499).center()));
  m_view.setZoom(20);
  EXPECT_TRUE(m_view.viewport()->rect().contains(m_view.chordRect(499).center()));
  EXPECT_TRUE(m_view.spokenText().startsWith("Chord 500, 3:05. A string open"));
}

TEST_F(LongRollTest, viewFollowsThePlayingChord) {
  for (int chord = 0; chord < 500; chord += 37) {
    m_view.showPlaying(chord);
    EXPECT_TRUE(m_view.viewport()->rect().contains(m_view.chordRect(chord).center())) << chord;
  }
  m_view.setSong(m_store.song("Empty"));
  for (const int key : {Qt::Key_Right, Qt::Key_PageUp, Qt::Key_End}) press(key);
  EXPECT_EQ(m_view.cursorChord(), -1);
  EXPECT_FALSE(m_view.grab().isNull());
}

}  // namespace
}  // namespace korvel::ui
