// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/menus/DoubtMenu.h"

#include <QApplication>
#include <QSignalSpy>
#include <QSlider>
#include <QTest>
#include <QTimer>

#include "model/songs/ToneOrder.h"
#include "support/Testing.h"
#include "support/songs/ChordLines.h"
#include "support/songs/DoubtedSong.h"
#include "support/songs/SongDesk.h"
#include "ui/dialogs/hearing/HearAgainDialog.h"
#include "ui/dialogs/hearing/NotesDialog.h"
#include "ui/views/TablatureView.h"

namespace korvel::ui {
namespace {

struct DoubtMenuTest : testing::Test {
  DoubtMenuTest() {
    QObject::connect(&m_menu, &DoubtMenu::edited, [this] {
      m_tablature.refresh();
      m_menu.refresh();
    });
    QObject::connect(&m_tablature, &TablatureView::removalWanted,
                     [this](int chord, int string) { m_menu.drop(chord, string); });
    m_tablature.resize(900, 500);
    m_tablature.show();
    m_tablature.setActiveSong(&m_song);
    m_menu.setSong(&m_song);
  }
  void choose(const QString& text) {
    for (QAction* action : m_menu.actions())
      if (action->text().remove('&') == text) return action->trigger();
    FAIL() << text.toStdString();
  }
  std::size_t left() {
    m_menu.find();
    return m_tablature.doubts().size();
  }

  test::SongDesk m_desk;
  QBSong& m_song = test::doubtedSong(*m_desk.album());
  TablatureView m_tablature;
  DoubtMenu m_menu{m_tablature};
};

TEST_F(DoubtMenuTest, goesFromDoubtToDoubtAndCorrectsThem) {
  const QSignalSpy said(&m_menu, &DoubtMenu::said);
  const QSignalSpy heard(&m_menu, &DoubtMenu::listenAt);
  const QSignalSpy refused(&m_menu, &DoubtMenu::refused);
  const QSignalSpy lefts(&m_menu, &DoubtMenu::leftChanged);
  EXPECT_EQ(left(), 2U);
  choose("Next Doubtful Place");
  ASSERT_EQ(said.size(), 1);
  EXPECT_EQ(said[0][0].toString(), "B string, fret 1: perhaps no note");
  EXPECT_NEAR(heard.at(0).at(0).toDouble(), 6.7, 0.01);
  EXPECT_EQ(m_tablature.cursorString(), 4);
  EXPECT_TRUE(m_tablature.placeText().endsWith(", doubtful: " + said[0][0].toString()));
  const int first = m_tablature.cursorChord();
  choose("Next Doubtful Place");
  const int second = m_tablature.cursorChord();
  EXPECT_GT(second, first);
  choose("Take What Else Was Heard");
  EXPECT_EQ(m_tablature.cursorChord(), second);
  EXPECT_EQ(left(), 1U);
  choose("Next Doubtful Place");
  EXPECT_EQ(m_tablature.cursorChord(), first) << "from the beginning again";
  QTest::keyClick(&m_tablature, Qt::Key_Delete);
  EXPECT_EQ(left(), 0U);
  EXPECT_EQ(lefts.last()[0].toInt(), 0);
  choose("Previous Doubtful Place");
  EXPECT_EQ(refused.last()[0].toString(), "Nothing is doubted in this song any more");
}

TEST_F(DoubtMenuTest, enterConfirmsWhatIsDoubtedAndPlaysNoPartInALock) {
  const QSignalSpy clicked(&m_tablature, &TablatureView::clicked);
  const QSignalSpy refused(&m_menu, &DoubtMenu::refused);
  choose("Next Doubtful Place");
  m_menu.setLocked(true);
  choose("Drop Note");
  EXPECT_EQ(refused.size(), 1);
  m_menu.setLocked(false);
  EXPECT_EQ(left(), 2U);
  QTest::keyClick(&m_tablature, Qt::Key_Return);
  EXPECT_EQ(left(), 1U);
  EXPECT_EQ(clicked.size(), 0);
  QTest::keyClick(&m_tablature, Qt::Key_Return);
  EXPECT_EQ(clicked.size(), 1) << "nothing is doubted there any more";
}

TEST_F(DoubtMenuTest, moreOrFewerNotesComeAsTheDialogSays) {
  const auto notes = [this] {
    int count = 0;
    for (const auto& chord : m_song.allChords()) count += static_cast<int>(tonesOf(*chord).size());
    return count;
  };
  const auto slide = [&](int to, bool accepts) {
    QString said;
    QTimer::singleShot(0, &m_menu, [&] {
      auto* dialog = qobject_cast<NotesDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      auto* slider = dialog->findChild<QSlider*>();
      slider->setValue(to < 0 ? slider->maximum() : to);
      said = slider->accessibleDescription();
      accepts ? dialog->accept() : dialog->reject();
    });
    choose("Fewer or More Notes ...");
    return said.toStdString();
  };
  const std::string before = test::drawn(m_song);
  const int atFirst = notes();
  const std::string cancelled = slide(0, false);
  EXPECT_EQ(test::drawn(m_song), before);
  EXPECT_EQ(slide(0, true), cancelled);
  const int fewer = notes();
  EXPECT_EQ(cancelled,
            "Notes that come: 0. Notes that go: " + std::to_string(atFirst - fewer) + '.');
  EXPECT_LT(fewer, atFirst);
  const std::string said = slide(-1, true);
  EXPECT_EQ(said, "Notes that come: " + std::to_string(notes() - fewer) + ". Notes that go: 0.");
  EXPECT_GT(notes(), atFirst) << "with the one that was not taken";
}

TEST_F(DoubtMenuTest, selectionIsHeardAgainOnlyWhereThereIsOneAndItsRecording) {
  const QSignalSpy refused(&m_menu, &DoubtMenu::refused);
  const std::string before = test::drawn(m_song);
  choose("Hear Selection Again ...");
  ASSERT_EQ(refused.size(), 1);
  EXPECT_TRUE(refused[0][0].toString().startsWith("Select the chords first"));
  m_tablature.selectChords(0, 3);
  for (const bool accepts : {false, true}) {
    QTimer::singleShot(0, &m_menu, [accepts] {
      auto* dialog = qobject_cast<HearAgainDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      accepts ? dialog->accept() : dialog->reject();
    });
    choose("Hear Selection Again ...");
    EXPECT_EQ(refused.size(), accepts ? 2 : 1);
  }
  EXPECT_TRUE(refused[1][0].toString().contains("its recording is not where"))
      << refused[1][0].toString().toStdString();
  EXPECT_EQ(test::drawn(m_song), before);
}

}  // namespace
}  // namespace korvel::ui
