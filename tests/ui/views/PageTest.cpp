// SPDX-License-Identifier: GPL-3.0-or-later
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>
#include <QTimer>

#include "support/Testing.h"
#include "support/songs/BeatSong.h"
#include "support/songs/SongDesk.h"
#include "tab/layout/ChordGrip.h"
#include "ui/page/GripsDialog.h"
#include "ui/page/GripsSheet.h"
#include "ui/page/PageDesk.h"
#include "ui/page/PageView.h"
#include "ui/page/SongSheets.h"

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

}  // namespace
}  // namespace korvel::ui
