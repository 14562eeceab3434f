// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/views/TablatureView.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QXmlStreamReader>

#include "platform/files/FileError.h"
#include "support/Approved.h"
#include "support/SaidBy.h"
#include "support/Testing.h"
#include "support/songs/BeatSong.h"
#include "support/store/StandardStore.h"
#include "tab/paper/PrintedSong.h"
#include "tab/text/SongDrawing.h"
#include "ui/paper/PaperFiles.h"
#include "ui/views/TablaturePages.h"

namespace korvel::ui {
namespace {

struct TablatureViewTest : testing::Test {
  TablatureViewTest() {
    for (int i = 0; i < 200; ++i) test::addChord(m_song, i % 5 == 4 ? "xxxxxx" : "x02210", 2);
    buildTab(*m_song);
    m_view.resize(800, 400);
    m_view.setActiveSong(m_song);
    m_view.show();
  }

  void click(int chord, Qt::KeyboardModifiers modifiers = {}) {
    // Four and a half of the ten rows down: the D string.
    const QRect rect = m_view.chordRect(chord);
    const QPoint fret(rect.left() + rect.width() / 4, rect.top() + rect.height() * 9 / 20);
    QTest::mouseClick(m_view.viewport(), Qt::LeftButton, modifiers, fret);
  }

  void drag(int first, int last) {
    const QPoint from = m_view.chordRect(first).center();
    const QPoint to = m_view.chordRect(last).center();
    QTest::mousePress(m_view.viewport(), Qt::LeftButton, {}, from);
    QMouseEvent moved(QEvent::MouseMove, to, m_view.viewport()->mapToGlobal(to), Qt::LeftButton,
                      Qt::LeftButton, {});
    QApplication::sendEvent(m_view.viewport(), &moved);
    QTest::mouseRelease(m_view.viewport(), Qt::LeftButton, {}, to);
  }

  void press(int key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(&m_view, static_cast<Qt::Key>(key), modifiers);
  }

  test::StandardStore m_store;
  QBSong* m_song = m_store.song("Waltz");
  TablatureView m_view;
};

TEST_F(TablatureViewTest, onlyTheRulerShiftAndDraggingMoveTheLoopUnlessLocked) {
  // As the session relays it.
  QObject::connect(&m_view, &TablatureView::clicked, &m_view, &TablatureView::handleClick);
  const QSignalSpy chosen(&m_view, &TablatureView::loopEndChosen);
  const QSignalSpy dragged(&m_view, &TablatureView::loopDragged);
  click(7);
  EXPECT_EQ(m_view.cursorChord(), 7);
  EXPECT_EQ(m_view.cursorString(), 2);
  EXPECT_EQ(chosen.count(), 0);
  click(8, Qt::ShiftModifier);
  QTest::mouseClick(m_view.viewport(), Qt::LeftButton, {},
                    m_view.chordRect(5).topLeft() + QPoint(3, 3));
  press(Qt::Key_Return);
  ASSERT_EQ(chosen.count(), 3);
  EXPECT_EQ(chosen[0][0].toInt(), 8);
  EXPECT_EQ(chosen[1][0].toInt(), 5);
  EXPECT_EQ(chosen[2][0].toInt(), 5);
  drag(2, 6);
  ASSERT_EQ(dragged.count(), 1);
  EXPECT_EQ(dragged[0], (QVariantList{2, 6}));
  EXPECT_EQ(m_view.selection().last, 6);
  m_view.lock(true);
  click(8, Qt::ShiftModifier);
  drag(2, 6);
  EXPECT_EQ(chosen.count() + dragged.count(), 4);
  EXPECT_EQ(m_view.cursorChord(), 6);
}

TEST_F(TablatureViewTest, aClickBelowTheRulerTellsWhichNoteIsThere) {
  const QSignalSpy clicked(&m_view, &TablatureView::chordClicked);
  const QRect chord = m_view.chordRect(7);
  const auto clickAt = [&](int x, int twentiethsDown) {
    QTest::mouseClick(m_view.viewport(), Qt::LeftButton, Qt::ControlModifier,
                      {x, chord.top() + chord.height() * twentiethsDown / 20});
  };
  click(7);
  clickAt(chord.left() + 2, 13);   // the low E string, which is silent
  clickAt(chord.right() - 2, 11);  // the open A string, behind its fret
  clickAt(chord.left() + 2, 11);
  clickAt(chord.left() + 2, 1);
  click(7, Qt::ShiftModifier);
  ASSERT_EQ(clicked.count(), 5) << "all but the one of the loop";
  const int strings[] = {2, -1, -1, 1, -1};
  for (int i = 0; i < 5; ++i) {
    EXPECT_EQ(clicked[i][0].toInt(), 7);
    EXPECT_EQ(clicked[i][1].toInt(), strings[i]) << i;
  }
}

TEST_F(TablatureViewTest, keysMoveTheCursorAndEdit) {
  m_view.moveCursor(2, 3);
  press(Qt::Key_Right);
  press(Qt::Key_Right);
  press(Qt::Key_Up);
  EXPECT_EQ(m_view.cursorChord(), 4) << "a silent chord can be filled";
  press(Qt::Key_Left);
  press(Qt::Key_Right, Qt::ControlModifier);
  EXPECT_EQ(m_view.cursorChord(), 5);
  EXPECT_EQ(m_view.cursorString(), 4);

  const QSignalSpy typed(&m_view, &TablatureView::fretTyped);
  press(Qt::Key_1);
  press(Qt::Key_2);
  press(Qt::Key_3);
  ASSERT_EQ(typed.count(), 3);
  EXPECT_EQ(typed[0], (QVariantList{5, 4, 1, false}));
  EXPECT_EQ(typed[1], (QVariantList{5, 4, 12, true}));
  EXPECT_EQ(typed[2], (QVariantList{5, 4, 3, false})) << "there is no fret 123";

  const QSignalSpy removed(&m_view, &TablatureView::removalWanted);
  const QSignalSpy played(&m_view, &TablatureView::playToggled);
  press(Qt::Key_Delete);
  press(Qt::Key_Space);
  m_view.lock(true);
  press(Qt::Key_Delete);
  press(Qt::Key_Space);
  EXPECT_EQ(removed.count(), 1);
  EXPECT_EQ(played.count(), 2) << "playing can be stopped";
  press(Qt::Key_End, Qt::ControlModifier);
  EXPECT_EQ(m_view.cursorChord(), 199);
}

/// By pages and strings the cursor goes everywhere, but no further than the song.
TEST_F(TablatureViewTest, keysThatScrollReachBothEnds) {
  const auto rowOf = [&](int chord) { return m_view.chordRect(chord).top(); };
  m_view.moveCursor(3, 2);
  std::vector<int> pages{m_view.cursorChord()};
  for (int page = 0; page < 30; ++page) {
    press(Qt::Key_PageDown);
    EXPECT_GE(m_view.cursorChord(), pages.back());
    EXPECT_TRUE(m_view.viewport()->rect().intersects(m_view.chordRect(m_view.cursorChord())));
    pages.push_back(m_view.cursorChord());
  }
  EXPECT_GT(pages[1], pages[0]);
  EXPECT_EQ(rowOf(pages.back()), rowOf(199)) << "the last line";
  EXPECT_EQ(m_view.cursorString(), 2);
  for (int page = 0; page < 30; ++page) press(Qt::Key_PageUp, Qt::ShiftModifier);
  EXPECT_EQ(rowOf(m_view.cursorChord()), rowOf(0)) << "the first line";
  EXPECT_EQ(m_view.selection().first, m_view.cursorChord());
  EXPECT_EQ(m_view.selection().last, pages.back());
  press(Qt::Key_Escape);
  EXPECT_EQ(m_view.selection().first, -1);
  for (int line = 0; line < 10; ++line) press(Qt::Key_Down);
  EXPECT_EQ(m_view.cursorString(), 0);
  const QSignalSpy zoomed(&m_view, &TablatureView::zoomChanged);
  QWheelEvent wheel(QPointF(9, 9), m_view.mapToGlobal(QPointF(9, 9)), {}, {0, -360}, Qt::NoButton,
                    Qt::ControlModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(m_view.viewport(), &wheel);
  press(Qt::Key_Minus, Qt::ControlModifier);
  EXPECT_EQ(zoomed.last()[0].toInt(), 60);
}

/// Each is to be told from all others at a glance.
TEST_F(TablatureViewTest, everyRhythmIsDrawnInItsOwnWay) {
  m_view.resize(500, 300);
  std::vector<QImage> pictures;
  const char* const rhythms[] = {
      "q q q q",      "h h",         "w",           "h. q",      "q. e h",
      "e e e e h",    "e e q e e q", "s s s s q h", "e. s q h",  "s e. q h",
      "e3 e3 e3 q h", "q3 q3 q3 h",  "e s s q h",   "s s e q h", "e rq e h",
      "rq q q q",     "~q q q q",    "e_1h e q h",  "q_1h q h",  "s rq e. h"};
  for (const char* rhythm : rhythms) {
    QBSong* song = m_store.song(rhythm);
    test::beatSong(song, "4/4 x02210 " + std::string(rhythm) + " |");
    buildTab(*song);
    m_view.setActiveSong(song);
    pictures.push_back(m_view.viewport()->grab().toImage());
    for (std::size_t other = 0; other + 1 < pictures.size(); ++other)
      EXPECT_NE(pictures.back(), pictures[other]) << rhythm << " and " << rhythms[other];
  }
}

TEST_F(TablatureViewTest, tabAsksForShapesOnlyWhileChordsAreSelected) {
  const QSignalSpy shapes(&m_view, &TablatureView::shapeWanted);
  m_view.moveCursor(3, 3);
  press(Qt::Key_Tab);
  EXPECT_EQ(shapes.count(), 0) << "it leads to the next part of the window";
  QTest::mouseDClick(m_view.viewport(), Qt::LeftButton, {}, m_view.chordRect(2).center());
  EXPECT_EQ(m_view.selection().first, 2);
  EXPECT_EQ(m_view.selection().last, 2);
  press(Qt::Key_Tab);
  press(Qt::Key_Backtab, Qt::ShiftModifier);
  m_view.lock(true);
  press(Qt::Key_Tab);
  ASSERT_EQ(shapes.count(), 2);
  EXPECT_EQ(shapes[0][0].toInt(), 1);
  EXPECT_EQ(shapes[1][0].toInt(), -1);
}

TEST_F(TablatureViewTest, viewFollowsThePlayingChord) {
  m_view.drawPlayMode(0.9F);
  EXPECT_EQ(m_view.playingChord(), 179) << "a silent one";
  EXPECT_FALSE(m_view.viewport()->rect().contains(m_view.chordRect(0)));
  m_view.showPlaying(180);
  EXPECT_TRUE(m_view.viewport()->rect().contains(m_view.chordRect(180)));
  const QImage marked = m_view.grab().toImage();
  m_view.setActiveSong(m_song);
  EXPECT_NE(m_view.grab().toImage(), marked) << "the marker goes when playing ends";
}

TEST_F(TablatureViewTest, selectedChordsAreCopiedAsTablature) {
  m_view.moveCursor(1, 0);
  press(Qt::Key_Right, Qt::ShiftModifier);
  press(Qt::Key_C, Qt::ControlModifier);
  const QStringList rows = QApplication::clipboard()->text().split('\n');
  EXPECT_EQ(rows.value(1).toStdString(), " |E---- -0--------0---");
  EXPECT_EQ(rows.value(6).toStdString(), " |E---- --------------");
  const QString xml = "application/vnd.recordare.musicxml+xml";
  EXPECT_TRUE(QApplication::clipboard()->mimeData()->hasImage());
  EXPECT_FALSE(QApplication::clipboard()->mimeData()->hasFormat(xml)) << "not all of the song";
  press(Qt::Key_A, Qt::ControlModifier);
  press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_TRUE(QApplication::clipboard()->mimeData()->data(xml).contains("</score-partwise>"));
  EXPECT_TRUE(m_view.selectedText().contains("Recorded by Korvel"));
  drag(1, 3);
  EXPECT_EQ(m_view.selectedText().count('2'), 6) << "two a chord";
}

TEST_F(TablatureViewTest, saysInWordsWhereTheCursorIs) {
  m_view.moveCursor(1, 2);
  EXPECT_EQ(m_view.placeText(), "Chord 2 of 200, D string, fret 2");
  m_view.moveCursor(1, 5);
  EXPECT_EQ(m_view.placeText(), "Chord 2 of 200, E string (1), open");
  QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(&m_view);
  ASSERT_TRUE(interface && interface->textInterface());
  EXPECT_EQ(interface->textInterface()->text(0, 7), "Chord 2");
  EXPECT_EQ(interface->text(QAccessible::Description), m_view.placeText());
  m_song->setFromChord(m_song->allChords()[1]);
  m_view.refresh();
  EXPECT_EQ(m_view.placeText(), "Chord 2 of 200, E string (1), open, loop begins");
}

TEST_F(TablatureViewTest, silencedTonesStayVisible) {
  QBHold* hold = m_song->allChords()[0]->hold();
  hold->findToneByString(2)->setActive(false);
  buildTab(*m_song);
  m_view.refresh();
  const QImage silenced = m_view.grab().toImage();
  hold->deleteToneOfString(2);
  m_view.refresh();
  EXPECT_NE(m_view.grab().toImage(), silenced);
}

TEST_F(TablatureViewTest, songThatLosesItsChordsIsStillShown) {
  m_view.moveCursor(150, 0);
  press(Qt::Key_Right, Qt::ShiftModifier);
  QBSong* shorter = m_store.song("Empty");
  m_view.setActiveSong(shorter);
  EXPECT_EQ(m_view.cursorChord(), -1);
  EXPECT_TRUE(m_view.selectedText().isEmpty());
  for (const int key : {int{Qt::Key_Right}, int{Qt::Key_PageDown}, int{Qt::Key_End}, int{Qt::Key_5},
                        int{Qt::Key_Return}})
    press(key);
  m_view.drawPlayMode(0.5F);
  m_view.drawContent("EXCEPTION OCCURED");
  EXPECT_FALSE(m_view.grab().isNull());
}

TEST_F(TablatureViewTest, zoomKeepsWhatIsAtTheTop) {
  m_view.moveCursor(190, 0);
  const QRect before = m_view.chordRect(190);
  press(Qt::Key_Plus, Qt::ControlModifier);
  EXPECT_EQ(m_view.zoom(), 110);
  EXPECT_GT(m_view.chordRect(190).width(), before.width());
  EXPECT_TRUE(m_view.viewport()->rect().intersects(m_view.chordRect(190)));
  press(Qt::Key_0, Qt::ControlModifier);
  EXPECT_EQ(m_view.zoom(), 100);
}

TEST_F(TablatureViewTest, rowsFillTheWidthAndTheTopStays) {
  m_view.moveCursor(120, 0);
  const auto rowsOf = [&](int width) {
    m_view.resize(width, 400);
    EXPECT_LE(m_view.horizontalScrollBar()->maximum(), 0);
    EXPECT_TRUE(m_view.viewport()->rect().intersects(m_view.chordRect(120))) << width;
    return m_view.tabLayout().systems().size();
  };
  const std::size_t narrow = rowsOf(500);
  EXPECT_LT(rowsOf(1600), narrow / 2);
  EXPECT_EQ(rowsOf(500), narrow);
}

TEST_F(TablatureViewTest, diagramsStandAboveTheStaffAndNotInItsText) {
  m_view.setActiveSong(test::beatSong(
      m_store.song("Shapes"), "Am:x02210 w | w | C:x3xxxx q xx2xxx q xxx0xx h | G:320003 w |"));
  const QString text = m_view.selectedText();
  m_view.moveCursor(5, 0);
  const QRect plain = m_view.chordRect(5);
  m_view.showDiagrams(true);
  const QRect moved = m_view.chordRect(5);
  EXPECT_GT(moved.top(), plain.top()) << "to make room";
  EXPECT_EQ(m_view.selectedText(), text);
  click(5);
  EXPECT_EQ(m_view.cursorChord(), 5);
  const auto grips = staffGripsOf(*m_view.song());
  ASSERT_EQ(grips.size(), 3U) << "where the name changes";
  EXPECT_EQ(shorthandOf(grips[0].shape), "x02210");
  EXPECT_EQ(shorthandOf(grips[1].shape), "x32010") << "broken chords in their easiest shape";
  EXPECT_EQ(grips[2].chord, 5);
  const QImage right = m_view.grab().toImage();
  m_view.setLeftHanded(true);
  EXPECT_NE(m_view.grab().toImage(), right);
  m_view.showDiagrams(false);
  EXPECT_EQ(m_view.chordRect(5), plain);
}

TEST_F(TablatureViewTest, papersAndPicturesAppearWholeOrNotAtAll) {
  const PaperWork work = tablatureWork({TabLayout::forExport(*m_song)}, "Waltz", m_view.tabFont());
  const auto saved = [&](const char* name) {
    savePaper(work, m_store.folder().file(name));
    return test::readFile(m_store.folder().file(name));
  };
  EXPECT_EQ(saved("waltz.pdf").substr(0, 5), "%PDF-");
  const auto svg = QString::fromStdString(saved("waltz.svg"));
  QXmlStreamReader xml(svg);
  QStringList words;
  while (!xml.atEnd())
    if (xml.readNext() == QXmlStreamReader::Characters) words << xml.text().trimmed().toString();
  EXPECT_FALSE(xml.hasError());
  EXPECT_TRUE(words.contains("Waltz"));
  EXPECT_EQ(words.count("2"), 320) << "frets of the D and the G string";
  EXPECT_NE(svg.indexOf(", monospace\""), -1) << "where that font is not installed";
  const QImage png = QImage::fromData(QByteArray::fromStdString(saved("waltz.PNG")), "PNG");
  EXPECT_EQ(png.width(), 1240) << "of A4";
  EXPECT_EQ(png.pixel(0, 0), 0xffffffff);
  const std::string missing = m_store.folder().file("missing/waltz.pdf");
  EXPECT_TRUE(test::saidBy<platform::FileError>([&] {
                savePaper(work, missing);
              }).starts_with(missing + ": "));
}

TEST_F(TablatureViewTest, pictureThatWouldBeTooHighIsSeveral) {
  std::string rows;
  for (int i = 0; i < 1200; ++i) rows += "|---0---|\n";
  const PaperWork work = tablatureWork({TabLayout(rows)}, "Waltz", m_view.tabFont());
  const auto save = [&](bool mayReplace) {
    return savePaper(work, m_store.folder().file("a.png"), [=](const auto&) { return mayReplace; });
  };
  const auto files = save(false);
  ASSERT_GT(files.size(), 1U);
  EXPECT_EQ(files.back().filename(), "a-" + std::to_string(files.size()) + ".png");
  const QImage first(QString::fromStdString(files.front().string()));
  EXPECT_GT(first.height(), 15000);
  EXPECT_LE(first.height(), 25000);
  EXPECT_TRUE(save(false).empty()) << "they are there";
  EXPECT_EQ(save(true), files);
}

TEST_F(TablatureViewTest, rhythmOnBeatsIsDrawnAndRestsAreReached) {
  const auto shown = [this](const char* written) {
    m_view.setActiveSong(test::beatSong(m_store.song("Beats"), written));
    return m_view.grab().toImage();
  };
  const QImage rest = shown("x02210 q q q q | e e rq h |");
  EXPECT_NE(shown("x02210 q q q q | e e ~q h |"), rest);
  click(6);
  EXPECT_EQ(m_view.cursorChord(), 6) << "no tones stand there";
  EXPECT_EQ(m_view.cursorString(), 2);
  press(Qt::Key_Right, Qt::ControlModifier);
  EXPECT_EQ(m_view.cursorChord(), 7);
  press(Qt::Key_Left, Qt::ControlModifier);
  EXPECT_EQ(m_view.cursorChord(), 5) << "past what is silent";
  m_view.setActiveSong(test::beatSong(m_store.song("Pick-up"), "x02210 q | q q q q |"));
  EXPECT_TRUE(m_view.placeText().startsWith("Pick-up, chord 1 of 5")) << "as its bars are numbered";
  const auto drawn = [](const PrintedSong& song) {
    return drawnAs(
        PaperFormat::svg,
        tablatureWork(std::get<PrintedTablature>(song.content), "Pick-up", QFont("monospace")),
        QPageSize(QPageSize::Letter));
  };
  const PrintedSong printed = printedTablature(*m_view.song());
  EXPECT_EQ(drawn(takenOver(handedOver(printed))), drawn(printed)) << "by the tool's program";
}

}  // namespace
}  // namespace korvel::ui
