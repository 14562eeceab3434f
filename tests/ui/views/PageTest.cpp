// SPDX-License-Identifier: GPL-3.0-or-later
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSettings>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>
#include <QWheelEvent>

#include "model/store/QBTabMgr.h"
#include "platform/persistence/UndoManager.h"
#include "support/Testing.h"
#include "support/songs/BeatSong.h"
#include "support/songs/SongDesk.h"
#include "tab/layout/ChordGrip.h"
#include "ui/page/CapoDialog.h"
#include "ui/page/GripsDialog.h"
#include "ui/page/GripsSheet.h"
#include "ui/page/PageDesk.h"
#include "ui/page/PageView.h"
#include "ui/page/SongSheets.h"
#include "ui/page/WordsDialog.h"

namespace korvel::ui {
namespace {

/// The page of a song of a section that comes twice, and another one.
struct PageTest : testing::Test {
  PageTest() {
    QSettings().clear();
    QObject::connect(&m_desk, &PageDesk::edited, &m_view, &PageView::refresh);
    m_desk.resize(800, 600);
    m_desk.show();
    m_desk.setSong(&m_song);
  }

  template <class Control>
  Control& control(const QString& name) {
    for (auto* each : m_desk.findChildren<Control*>())
      if (each->accessibleName() == name) return *each;
    throw std::runtime_error(name.toStdString());
  }
  static QPushButton& button(QWidget& around, const QString& text) {
    for (auto* each : around.findChildren<QPushButton*>())
      if (each->text() == text) return *each;
    throw std::runtime_error(text.toStdString());
  }
  const PageBar& bar(std::size_t section, std::size_t number) const {
    return m_view.page().sections.at(section).bars.at(number);
  }
  void type(const QString& words, Qt::Key end) {
    auto* line = m_view.viewport()->findChild<QLineEdit*>();
    ASSERT_NE(line, nullptr);
    line->setText(words);
    QTest::keyClick(line, end);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  test::SongDesk m_store;
  QBSong& m_song = *test::beatSong(
      m_store.album()->createSong("Song"),
      "key=0 C:x32010 w | Am:x02210 w | F:133211 w | G:320003 w | C:x32010 w | Am:x02210 w | "
      "F:133211 w | G:320003 w | Dm:xx0231 w | Em:022000 w | Dm:xx0231 h G:320003 h | C:x32010 w "
      "|");
  PageDesk m_desk;
  PageView& m_view = m_desk.view();
};

TEST_F(PageTest, chordsAreReachedAndWhatPlaysIsMarkedEachTime) {
  ASSERT_EQ(m_view.page().sections.size(), 2U);
  EXPECT_EQ(m_view.page().sections[0].times, 2);
  EXPECT_EQ(m_view.chordRect(6), m_view.chordRect(2)) << "the second time";
  const QSignalSpy chosen(&m_view, &PageView::chordChosen);
  QTest::mouseClick(m_view.viewport(), Qt::LeftButton, {}, m_view.chordRect(2).center());
  m_view.showCursor(2);
  for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Down, Qt::Key_End})
    QTest::keyClick(&m_view, key);
  ASSERT_EQ(chosen.count(), 4);
  for (const auto& [at, chord] : {std::pair(0, 2), {1, 3}, {2, 10}, {3, 12}})
    EXPECT_EQ(chosen[at][0].toInt(), chord);
  EXPECT_TRUE(m_view.spokenText().startsWith("Section A, bar 3, F"));
  const QImage still = m_view.grab().toImage();
  m_view.showPlaying(7);
  EXPECT_NE(m_view.grab().toImage(), still);
  m_view.resize(300, 200);
  m_view.showPlaying(12);
  EXPECT_TRUE(m_view.viewport()->rect().contains(m_view.chordRect(12).center()))
      << "it is followed";
}

TEST_F(PageTest, wordsAreTypedBelowTheirBars) {
  m_view.showCursor(1);
  QTest::keyClick(&m_view, Qt::Key_Return);
  type("hello", Qt::Key_Tab);
  type("world", Qt::Key_Return);
  m_view.showCursor(5);
  QTest::keyClick(&m_view, Qt::Key_F2);
  type("again", Qt::Key_Return);
  QTest::keyClick(&m_view, Qt::Key_F2);
  type("not this", Qt::Key_Escape);
  EXPECT_EQ(bar(0, 1).wordText(0), "hello");
  EXPECT_EQ(bar(0, 1).wordText(1), "again");
  EXPECT_EQ(bar(0, 2).wordText(0), "world");
  EXPECT_TRUE(m_view.spokenText().endsWith("again"));
}

TEST_F(PageTest, lookIsRememberedWithTheSongAndWritten) {
  control<QSpinBox>("Capo").setValue(3);
  EXPECT_EQ(m_view.page().grips.at(0).shape, "A") << "for a C";
  control<QComboBox>("Chords as").setCurrentIndex(1);
  EXPECT_EQ(bar(0, 1).chords.at(0).name, "vi");
  PageLook look = RememberedPages().of(m_song);
  look.shapes["A"] = "577655";
  RememberedPages().remember(m_song, look);
  m_desk.setLeftHanded(true);
  EXPECT_TRUE(m_view.page().leftHanded);
  PageDesk other;
  other.show();
  other.setSong(&m_song);
  const SongPage& page = other.view().page();
  EXPECT_EQ(page.capo, 3);
  EXPECT_EQ(page.grips.at(0).frets, (ChordShape{5, 7, 7, 6, 5, 5}));
  const auto written = [this](const char* name) {
    writePage(m_song, m_store.folder().file(name));
    return test::readFile(m_store.folder().file(name));
  };
  EXPECT_NE(written("page.txt").find("Capo: 3 (shapes of A)"), std::string::npos);
  EXPECT_NE(written("page.cho").find("{capo: 3}"), std::string::npos);
  EXPECT_TRUE(written("page.pdf").starts_with("%PDF-"));
  GripsSheet grips(page);
  grips.resize(500, 900);
  const QSignalSpy clicked(&grips, &GripsSheet::chosen);
  QTest::mouseClick(&grips, Qt::LeftButton, {}, grips.placeOf(1));
  ASSERT_EQ(clicked.count(), 1);
  EXPECT_EQ(clicked[0][0].toInt(), 1);
}

TEST_F(PageTest, gripsAreChosenByKeysAndPlayed) {
  m_view.showCursor(1);
  const ChordShape other = m_view.page().grips.at(1).others.at(1);
  QString spoken;
  bool isAtCursor = false;
  QTimer::singleShot(0, &m_desk, [&] {
    auto& dialog = *m_desk.findChild<GripsDialog*>();
    auto& sheet = *dialog.findChild<GripsSheet*>();
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Right, Qt::Key_Right})
      QTest::keyClick(&sheet, key);
    spoken = sheet.spokenText();
    QTest::keyClick(&sheet, Qt::Key_Return);
    EXPECT_EQ(m_view.page().grips.at(1).frets, other);
    isAtCursor = button(dialog, "Play at the Cursor").isEnabled();
    button(dialog, "Play in the Song").click();
    dialog.reject();
  });
  button(m_desk, "Grips ...").click();
  EXPECT_TRUE(spoken.startsWith("Am: ") && spoken.contains(", other 2 of "))
      << spoken.toStdString();
  EXPECT_TRUE(isAtCursor);
  for (const std::size_t chord : {1U, 5U})
    EXPECT_EQ(ChordGrip(*m_song.allChords()[chord]).shorthand(), shorthandOf(other));
  EXPECT_TRUE(RememberedPages().of(m_song).shapes.isEmpty()) << "it is the song's own now";
}

TEST_F(PageTest, lyricsThatArePastedComeBackAndAreNotChangedByLookingAtThem) {
  const auto undoName = [] {
    return QBTabMgr::db().context().undoManager().undoActionName().english();
  };
  QString found;
  const auto open = [&](const QString& words, bool accepts) {
    QTimer::singleShot(0, &m_desk, [&, words, accepts] {
      auto& dialog = *m_desk.findChild<WordsDialog*>();
      auto& text = *dialog.findChild<QPlainTextEdit*>();
      found = text.toPlainText();
      if (!words.isEmpty()) text.setPlainText(words);
      accepts ? dialog.accept() : dialog.reject();
    });
    button(m_desk, "Lyrics ...").click();
  };
  const std::string before = undoName();
  open("not | this", false);
  open({}, true);
  EXPECT_EQ(undoName(), before);
  open("one | two | | four\n\n9: nine", true);
  EXPECT_EQ(found, "") << "cancelled";
  EXPECT_EQ(bar(0, 1).wordText(0), "two");
  EXPECT_EQ(bar(1, 0).wordText(0), "nine");
  const std::string pasted = undoName();
  EXPECT_NE(pasted, before);
  open({}, true);
  open({}, false);
  EXPECT_TRUE(found.startsWith("1: one | two") && found.contains("nine")) << found.toStdString();
  EXPECT_EQ(undoName(), pasted);
  QBTabMgr::db().context().undoManager().undo();
  EXPECT_EQ(undoName(), before) << "one step, and none for looking";
}

TEST_F(PageTest, capoThatIsChosenIsThePagesAndItsTableFollowsTheKey) {
  QStringList rows;
  const auto choose = [&](int row) {
    QTimer::singleShot(0, &m_desk, [&, row] {
      auto& dialog = *m_desk.findChild<CapoDialog*>();
      auto& table = *dialog.findChild<QTreeWidget*>();
      for (int i = 0; i < table.topLevelItemCount(); ++i)
        rows << table.topLevelItem(i)->text(0) + ' ' + table.topLevelItem(i)->text(1);
      if (row >= 0) table.setCurrentItem(table.topLevelItem(row));
      row >= 0 ? dialog.accept() : dialog.reject();
    });
    rows.clear();
    button(m_desk, "Which Capo? ...").click();
  };
  choose(-1);
  EXPECT_EQ(rows.value(0), "None: the best C");
  EXPECT_EQ(m_view.page().capo, 0);
  choose(3);
  EXPECT_EQ(m_view.page().capo, 3);
  EXPECT_EQ(control<QSpinBox>("Capo").value(), 3);
  control<QSpinBox>("Key up or down").setValue(-11);
  EXPECT_EQ(bar(0, 0).chords.at(0).sounding, "Db") << "eleven half tones below C";
  choose(-1);
  EXPECT_TRUE(rows.value(0).startsWith("None Db")) << rows.value(0).toStdString();
  EXPECT_EQ(m_view.page().capo, 3);
}

TEST_F(PageTest, keysAndTheMouseReachEveryChordAndNoFurther) {
  QObject::connect(&m_view, &PageView::chordChosen, &m_view, &PageView::showCursor);
  const QSignalSpy chosen(&m_view, &PageView::chordChosen);
  const auto press = [&](std::initializer_list<Qt::Key> keys) {
    for (const Qt::Key key : keys) QTest::keyClick(&m_view, key);
    return chosen.isEmpty() ? -1 : chosen.last()[0].toInt();
  };
  EXPECT_EQ(press({Qt::Key_Up}), 0) << "without a cursor, the first one";
  EXPECT_EQ(press({Qt::Key_Left, Qt::Key_Up, Qt::Key_Home}), 0);
  EXPECT_EQ(press({Qt::Key_End}), 12);
  const auto most = chosen.count();
  EXPECT_EQ(press({Qt::Key_Right, Qt::Key_Down}), 12);
  EXPECT_EQ(chosen.count(), most);
  EXPECT_LT(press({Qt::Key_Up}), 11) << "the line above";
  const QSignalSpy heard(&m_view, &PageView::listenWanted);
  const QPoint third = m_view.chordRect(2).center();
  QTest::mouseClick(m_view.viewport(), Qt::LeftButton, Qt::AltModifier | Qt::ShiftModifier, third);
  ASSERT_EQ(heard.count(), 1);
  EXPECT_EQ(heard[0][0].toInt(), 2);
  EXPECT_TRUE(heard[0][1].toBool());
  QTest::keyClick(&m_view, Qt::Key_F2);
  const QPoint below = m_view.viewport()->findChild<QLineEdit*>()->geometry().center();
  type("", Qt::Key_Escape);
  QTest::mouseDClick(m_view.viewport(), Qt::LeftButton, {}, below);
  type("here", Qt::Key_Return);
  EXPECT_EQ(bar(0, 2).wordText(0), "here");
  const QSignalSpy zoomed(&m_view, &PageView::zoomChanged);
  const int height = m_view.chordRect(2).height();
  QWheelEvent wheel(third, m_view.viewport()->mapToGlobal(third), {}, {0, 240}, Qt::NoButton,
                    Qt::ControlModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(m_view.viewport(), &wheel);
  EXPECT_GT(m_view.chordRect(2).height(), height);
  EXPECT_EQ(RememberedPages().zoom(), zoomed.last()[0].toInt());
}

TEST_F(PageTest, typingGoesOnWhileThePageGetsAnotherSize) {
  const QScrollBar& scroll = *m_view.verticalScrollBar();
  const auto resize = [this](int width, int height) {
    m_desk.resize(width, height);
    QCoreApplication::processEvents();
  };
  int height = 1200;
  for (resize(800, height); scroll.maximum() == 0 && height > 0;) resize(800, height -= 4);
  resize(800, height + 4);
  ASSERT_EQ(scroll.maximum(), 0);
  m_view.setFocus();
  m_view.showCursor(0);
  QTest::keyClick(&m_view, Qt::Key_Return);
  type("one", Qt::Key_Tab);
  QCoreApplication::processEvents();
  EXPECT_GT(scroll.maximum(), 0) << "there is a line of words now";
  auto* line = m_view.viewport()->findChild<QLineEdit*>();
  ASSERT_NE(line, nullptr);
  EXPECT_EQ(m_view.window()->focusWidget(), line);
  const int left = line->x();
  resize(500, height);
  EXPECT_LT(line->x(), left) << "with its bar";
  m_view.setZoom(150);
  type("two", Qt::Key_Return);
  EXPECT_EQ(bar(0, 0).wordText(0) + ' ' + bar(0, 1).wordText(0), "one two");
}

/// Tab goes on from the last bar of a section to its second time, then to the next section.
TEST_F(PageTest, tabGoesThroughAllBarsThatHaveWords) {
  m_view.showCursor(0);
  QTest::keyClick(&m_view, Qt::Key_Return);
  for (int typed = 0; typed < 12; ++typed) type(QString::number(typed), Qt::Key_Tab);
  EXPECT_EQ(m_view.viewport()->findChild<QLineEdit*>(), nullptr) << "the end";
  EXPECT_EQ(bar(0, 3).wordText(0) + ' ' + bar(0, 0).wordText(1) + ' ' + bar(1, 0).wordText(0) +
                ' ' + bar(1, 3).wordText(0),
            "3 4 8 11");
}

}  // namespace
}  // namespace korvel::ui
