// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/roll/RollView.h"

#include <QPainter>
#include <QSignalSpy>
#include <QTest>

#include "model/recorded/SongRecording.h"
#include "music/Neck.h"
#include "platform/media/WaveFileWriter.h"
#include "rhythm/stored/HeardBytes.h"
#include "support/Testing.h"
#include "support/songs/BeatSong.h"
#include "support/songs/ChordLines.h"
#include "support/store/ScratchFolder.h"
#include "support/store/StandardStore.h"
#include "ui/roll/RollEdits.h"
#include "workflow/editing/doubts/SongNotes.h"

namespace korvel::ui {
namespace {

/// Two bars, a chord on each beat: A for four beats, then E with G.
struct RollViewTest : testing::Test {
  RollViewTest() {
    test::beatSong(m_song, "4/4 x0xxxx q x0xxxx q x0xxxx q x0xxxx q | 0xxxx3 q ~q ~q ~q |");
    m_view.resize(900, 400);
    show();
    m_view.show();
  }

  void show() {
    m_view.setSong(m_song);
    m_view.setNotes(SongNotes(*m_song));
  }

  /// Seconds of the A that is struck.
  static void writeSound(const std::string& file, double seconds) {
    platform::WaveFileWriter writer(file, platform::kSampleRate, 1);
    std::vector<std::int16_t> samples(static_cast<std::size_t>(seconds * platform::kSampleRate));
    for (std::size_t i = 0; i < samples.size(); ++i)
      samples[i] = static_cast<std::int16_t>(
          9000 * std::sin(2 * std::numbers::pi * 110 * static_cast<double>(i) / 44100));
    writer.write(samples);
    writer.finish();
  }

  /// The song was heard in that, half a second for each beat.
  void record(const std::string& file, double seconds) {
    writeSound(file, seconds);
    SongRecording* recording = QBTabMgr::db().createRecording(file);
    recording->setSeconds(seconds);
    m_song->setRecording(recording);
    std::int64_t beat = 0;
    for (const auto& chord : m_song->allChords()) chord->setBeatTime(22050 * beat++);
  }

  QPoint middle(int chord, int string) const { return m_view.toneRect({chord, string}).center(); }

  void drag(const QPoint& from, const QPoint& by, Qt::KeyboardModifiers keys = {}) {
    QWidget* port = m_view.viewport();
    QTest::mousePress(port, Qt::LeftButton, keys, from);
    for (const QPoint& to : {from + by / 2, from + by}) {
      QMouseEvent move(QEvent::MouseMove, to, port->mapToGlobal(to), Qt::NoButton, Qt::LeftButton,
                       keys);
      QApplication::sendEvent(port, &move);
    }
    QTest::mouseRelease(port, Qt::LeftButton, keys, from + by);
  }

  test::StandardStore m_store;
  const test::ScratchFolder m_folder;
  QBSong* m_song = m_store.song("Waltz");
  RollView m_view;
};

TEST_F(RollViewTest, tonesAreDrawnMovedAndMadeLonger) {
  const QSignalSpy drawn(&m_view, &RollView::toneDrawn);
  const QSignalSpy moved(&m_view, &RollView::tonesMoved);
  const QSignalSpy longer(&m_view, &RollView::tonesLengthened);
  const double beat = m_view.chordRect(1).left() - m_view.chordRect(0).left();
  const int lane = (middle(0, 1).y() - middle(4, 5).y()) / (67 - 45);
  drag(middle(1, 1) + QPoint(3, -3 * lane), QPoint(static_cast<int>(beat * 0.6), 0));
  ASSERT_EQ(drawn.count(), 1);
  EXPECT_EQ(drawn[0][0].toInt(), 48);
  EXPECT_NEAR(drawn[0][1].toDouble(), 18, 0.1) << "the middle of the second beat";
  EXPECT_NEAR(drawn[0][2].toDouble(), 9, 0.1) << "on sixteenths";

  drag(middle(1, 1), QPoint(static_cast<int>(beat * 1.1), -2 * lane));
  ASSERT_EQ(moved.count(), 1);
  EXPECT_EQ(moved[0][0].value<std::vector<ToneIndex>>(), (std::vector<ToneIndex>{{1, 1}}));
  EXPECT_EQ(moved[0][1].toDouble(), 12);
  EXPECT_EQ(moved[0][2].toInt(), 2);
  EXPECT_FALSE(moved[0][3].toBool());

  const QRect tone = m_view.toneRect({2, 1});
  drag(QPoint(tone.right() - 1, tone.center().y()), QPoint(static_cast<int>(beat / 12 * 2), 0),
       Qt::AltModifier);
  ASSERT_EQ(longer.count(), 1);
  EXPECT_EQ(longer[0][1].toDouble(), 2);
  EXPECT_TRUE(longer[0][2].toBool());
}

TEST_F(RollViewTest, aBandChoosesWhatIsDraggedTogether) {
  const QSignalSpy moved(&m_view, &RollView::tonesMoved);
  const QRect first = m_view.toneRect({0, 1});
  const QRect third = m_view.toneRect({2, 1});
  drag(first.topLeft() - QPoint(0, 12), third.center() - first.topLeft() + QPoint(0, 20),
       Qt::ControlModifier);
  EXPECT_EQ(m_view.chosen().size(), 3U);
  QTest::mouseClick(m_view.viewport(), Qt::LeftButton, Qt::ControlModifier, middle(1, 1));
  EXPECT_EQ(m_view.chosen(), (std::vector<ToneIndex>{{0, 1}, {2, 1}}));
  drag(middle(2, 1), QPoint(first.width(), 0));
  ASSERT_EQ(moved.count(), 1);
  EXPECT_EQ(moved[0][0].value<std::vector<ToneIndex>>().size(), 2U);
}

TEST_F(RollViewTest, aClickHasTheMomentPlayedAndTheToneDropped) {
  record(m_folder.file("a.wav"), 4);
  show();
  const QSignalSpy heard(&m_view, &RollView::listenAt);
  const QSignalSpy played(&m_view, &RollView::pitchWanted);
  const QSignalSpy dropped(&m_view, &RollView::dropWanted);
  QTest::mouseClick(m_view.viewport(), Qt::LeftButton, {}, middle(3, 1));
  ASSERT_EQ(heard.count(), 1);
  EXPECT_NEAR(heard[0][0].toDouble(), 1.5, 1e-6);
  EXPECT_NEAR(heard[0][1].toDouble(), 0.5, 1e-6);
  ASSERT_EQ(dropped.count(), 1);
  EXPECT_EQ(dropped[0][0].value<ToneIndex>(), (ToneIndex{3, 1}));
  QTest::mouseClick(m_view.viewport(), Qt::LeftButton, Qt::ShiftModifier, middle(3, 1));
  ASSERT_EQ(played.count(), 1);
  EXPECT_EQ(played[0][0].toInt(), 45);
  EXPECT_EQ(heard.count() + dropped.count(), 2);
}

/// As when an import ends and shows its song, or an edit is undone by the keys.
TEST_F(RollViewTest, whatTheButtonWentDownOnMayBeGoneWhenItComesUp) {
  record(m_folder.file("a.wav"), 4);
  show();
  const QSignalSpy dropped(&m_view, &RollView::dropWanted);
  const QSignalSpy moved(&m_view, &RollView::tonesMoved);
  const QPoint last = middle(4, 5);
  for (const QPoint& by : {QPoint(), QPoint(60, 0)}) {
    show();
    QTest::mousePress(m_view.viewport(), Qt::LeftButton, {}, last);
    QMouseEvent move(QEvent::MouseMove, last + by, m_view.viewport()->mapToGlobal(last + by),
                     Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_view.viewport(), &move);
    m_view.setSong(m_store.song("Empty"));
    QTest::mouseRelease(m_view.viewport(), Qt::LeftButton, {}, last + by);
  }
  EXPECT_EQ(dropped.count() + moved.count(), 0);
}

TEST_F(RollViewTest, keysGoFromToneToToneAndEditIt) {
  m_view.showCursor(4);
  for (const int key : {Qt::Key_Up, Qt::Key_Up})
    QTest::keyClick(&m_view, static_cast<Qt::Key>(key));
  EXPECT_EQ(m_view.spokenText(), "G4, E string (1), fret 3");
  const QSignalSpy moved(&m_view, &RollView::tonesMoved);
  const QSignalSpy longer(&m_view, &RollView::tonesLengthened);
  const QSignalSpy dropped(&m_view, &RollView::dropWanted);
  QTest::keyClick(&m_view, Qt::Key_Left, Qt::ControlModifier);
  QTest::keyClick(&m_view, Qt::Key_Down, Qt::ControlModifier);
  QTest::keyClick(&m_view, Qt::Key_Left, Qt::ShiftModifier);
  QTest::keyClick(&m_view, Qt::Key_Delete);
  ASSERT_EQ(moved.count(), 2);
  EXPECT_EQ(moved[0][1].toDouble(), -3);
  EXPECT_EQ(moved[1][2].toInt(), -1);
  EXPECT_EQ(longer.count() + dropped.count(), 2);
  QTest::keyClick(&m_view, Qt::Key_Left);
  EXPECT_EQ(m_view.cursorChord(), 3);
}

TEST_F(RollViewTest, wheelAndKeysGoThroughTheSongAndZoom) {
  m_view.resize(300, 300);
  const auto turn = [this](int by, Qt::KeyboardModifiers keys, double x) {
    const QPointF place(x, 100);
    QWheelEvent wheel(place, m_view.viewport()->mapToGlobal(place), {}, {0, by}, Qt::NoButton, keys,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(m_view.viewport(), &wheel);
  };
  const QSignalSpy zoomed(&m_view, &RollView::zoomChanged);
  const double x = m_view.chordRect(1).center().x();
  turn(480, Qt::ControlModifier, x);
  EXPECT_GT(zoomed.last()[0].toDouble(), 200);
  EXPECT_TRUE(m_view.chordRect(1).contains(QPoint(static_cast<int>(x), 5)))
      << "what is under the pointer stays there";
  const int before = m_view.chordRect(1).left();
  turn(-120, {}, x);
  EXPECT_LT(m_view.chordRect(1).left(), before) << "down is forwards";
  turn(120, {}, x);
  EXPECT_EQ(m_view.chordRect(1).left(), before);
  QTest::keyClick(&m_view, Qt::Key_0, Qt::ControlModifier);
  EXPECT_EQ(zoomed.last()[0].toDouble(), 100);

  const QSignalSpy chosen(&m_view, &RollView::chordChosen);
  const QSignalSpy played(&m_view, &RollView::playToggled);
  m_view.showCursor(3);
  for (const Qt::Key key : {Qt::Key_Home, Qt::Key_PageUp, Qt::Key_Left, Qt::Key_PageDown,
                            Qt::Key_End, Qt::Key_PageDown, Qt::Key_Right, Qt::Key_Space})
    QTest::keyClick(&m_view, key);
  QList<int> chords;
  for (const auto& each : chosen) chords << each[0].toInt();
  EXPECT_EQ(chords.mid(0, 3), (QList<int>{0, 0, 0}));
  EXPECT_GT(chords[3], 0);
  EXPECT_EQ(chords.mid(4), (QList<int>{7, 7, 7}));
  EXPECT_TRUE(m_view.viewport()->rect().intersects(m_view.chordRect(7)));
  EXPECT_EQ(played.count(), 1);
}

TEST_F(RollViewTest, linesOfBeatsAreDraggedAndEscapeLeavesAllAsItIs) {
  const QSignalSpy beats(&m_view, &RollView::beatDragged);
  const QSignalSpy edits(&m_view, &RollView::tonesMoved);
  const QSignalSpy drawn(&m_view, &RollView::toneDrawn);
  const QRect column = m_view.chordRect(2);
  QTest::mouseMove(m_view.viewport(), QPoint(column.left(), 4));
  drag(QPoint(column.left(), 4), QPoint(column.width() / 4, 0));
  ASSERT_EQ(beats.count(), 1);
  EXPECT_EQ(beats[0][0].toDouble(), 24);
  EXPECT_NEAR(beats[0][1].toDouble(), 27, 0.5);
  drag(QPoint(column.left(), 4), QPoint(1, 0));
  EXPECT_EQ(beats.count(), 1) << "a hand that trembles";
  for (const QPoint& from : {middle(1, 1), middle(1, 1) - QPoint(0, 40)}) {
    QWidget* port = m_view.viewport();
    QTest::mousePress(port, Qt::LeftButton, {}, from);
    const QPoint to = from + QPoint(80, 0);
    QMouseEvent move(QEvent::MouseMove, to, port->mapToGlobal(to), Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    QApplication::sendEvent(port, &move);
    const QImage dragged = m_view.grab().toImage();
    QTest::keyClick(&m_view, Qt::Key_Escape);
    EXPECT_NE(m_view.grab().toImage(), dragged) << "what would come is shown";
    QTest::mouseRelease(port, Qt::LeftButton, {}, to);
  }
  EXPECT_EQ(edits.count() + drawn.count(), 0);
}

/// What the mouse draws becomes a tone of the song, is moved, made longer and erased there.
TEST_F(RollViewTest, whatIsDrawnIsInTheSong) {
  RollEdits edits(m_view);
  edits.setSong(m_song);
  QObject::connect(&edits, &RollEdits::edited, &m_view, [this] { show(); });
  const QSignalSpy refused(&edits, &RollEdits::refused);
  const std::string before = test::drawn(*m_song);
  const int lane = (middle(0, 1).y() - middle(4, 5).y()) / (67 - 45);
  const int beat = m_view.chordRect(1).left() - m_view.chordRect(0).left();
  const QPoint place(m_view.chordRect(1).left() + 3, middle(1, 1).y() - 7 * lane);
  drag(place, QPoint(beat - 8, 0));
  const QRect drawn = m_view.toneRect({1, 2});
  ASSERT_FALSE(drawn.isEmpty()) << test::drawn(*m_song);
  EXPECT_TRUE(drawn.contains(place + QPoint(2, 0)));
  drag(drawn.center(), QPoint(beat, -2 * lane));
  EXPECT_TRUE(m_view.toneRect({1, 2}).isEmpty()) << test::drawn(*m_song);
  const QRect moved = m_view.toneRect({2, 2});
  ASSERT_FALSE(moved.isEmpty()) << test::drawn(*m_song);
  drag(QPoint(moved.right() - 1, moved.center().y()), QPoint(beat, 0));
  EXPECT_GT(m_view.toneRect({2, 2}).width(), moved.width() + beat / 2);
  m_view.showCursor(2);
  for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Up, Qt::Key_Delete}) QTest::keyClick(&m_view, key);
  EXPECT_EQ(test::drawn(*m_song), before);
  EXPECT_EQ(refused.count(), 0);
}

/// A note on each beat, and an E that was not taken on the second one.
rhythm::HeardNotes heardOnBeats() {
  const auto note = [](double onset, int string, int fret, float probability) {
    return fingering::Note{.onset = onset,
                           .end = onset + 0.5,
                           .pitch = kStandardPitches[static_cast<std::size_t>(string)] + fret,
                           .string = string,
                           .fret = fret,
                           .strength = 1,
                           .probability = probability,
                           .amplitude = 0.1F};
  };
  rhythm::HeardNotes heard;
  for (int beat = 0; beat < 4; ++beat) heard.taken.push_back(note(0.5 * beat, 1, 0, 0.9F));
  heard.taken.push_back(note(2, 0, 0, 0.9F));
  heard.taken.push_back(note(2, 5, 3, 0.6F));
  heard.doubtful.push_back(note(0.5, 2, 2, 0.4F));
  return heard;
}

TEST_F(RollViewTest, clicksTakeCandidatesAndDropNotes) {
  record(m_folder.file("a.wav"), 4);
  m_song->recording()->setNotes(rhythm::bytesOf(heardOnBeats()));
  for (const auto& chord : m_song->allChords()) chord->setTimestamp(chord->beatTime());
  QBTabMgr::db().save();
  RollEdits edits(m_view);
  edits.setSong(m_song);
  const QSignalSpy refused(&edits, &RollEdits::refused);
  QObject::connect(&edits, &RollEdits::edited, &m_view, [this] { show(); });
  show();
  ASSERT_EQ(m_view.notes().candidates.size(), 1U);
  EXPECT_NEAR(m_view.notes().signs.back().probability, 0.6, 0.01);
  const auto click = [this](const QRect& rect) {
    QTest::mouseClick(m_view.viewport(), Qt::LeftButton, {}, rect.center());
  };
  click(m_view.candidateRect(0));
  EXPECT_TRUE(m_view.notes().candidates.empty());
  const QRect taken = m_view.toneRect({1, 2});
  ASSERT_FALSE(taken.isEmpty()) << "the tablature has it: " << m_song->tabulature();
  EXPECT_EQ(m_view.toneRect({1, 1}).left(), taken.left()) << "beside the note of its beat";
  click(taken);
  ASSERT_EQ(m_view.notes().candidates.size(), 1U);
  EXPECT_TRUE(m_view.notes().candidates[0].isLocked);
  m_view.showCursor(1);
  for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Up}) QTest::keyClick(&m_view, key);
  EXPECT_EQ(m_view.spokenText(), "E3, not taken for a note, 40 per cent");
  QTest::keyClick(&m_view, Qt::Key_Return);
  EXPECT_TRUE(m_view.notes().candidates.empty());
  m_view.showCursor(4);
  for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Up}) QTest::keyClick(&m_view, key);
  EXPECT_EQ(m_view.spokenText(), "G4, E string (1), fret 3, 60 per cent");
  QTest::keyClick(&m_view, Qt::Key_Return);
  for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Up}) QTest::keyClick(&m_view, key);
  EXPECT_EQ(m_view.spokenText(), "G4, E string (1), fret 3, as you decided");
  click(m_view.toneRect({1, 2}));
  edits.setLocked(true);
  click(m_view.candidateRect(0));
  EXPECT_EQ(m_view.notes().candidates.size(), 1U);
  ASSERT_EQ(refused.count(), 1);
  EXPECT_EQ(refused[0][0].toString(), "Stop playing first, then edit");
}

/// The recording's A stands where the song has it, and not beside it.
TEST_F(RollViewTest, theRecordingIsSeenBehindTheTones) {
  record(m_folder.file("a.wav"), 4);
  const auto darkness = [this](int pitchesBeside) {
    const int lane = (middle(0, 1).y() - middle(4, 5).y()) / (67 - 45);
    const QImage image = m_view.viewport()->grab().toImage();
    return 255 - image
                     .pixelColor(m_view.chordRect(4).center().x(),
                                 middle(0, 1).y() - pitchesBeside * lane)
                     .lightness();
  };
  const int plain = darkness(0);
  show();
  ASSERT_TRUE(QTest::qWaitFor([&] { return darkness(0) > plain + 60; }, 20000));
  EXPECT_LT(darkness(4), plain + 30);
  for (const double zoom : {0.001, 20000.0, 100.0}) {
    m_view.setZoom(zoom);
    EXPECT_FALSE(m_view.grab().isNull()) << zoom;
  }
}

TEST_F(RollViewTest, saysThatTheRecordingIsMissing) {
  record(m_folder.file("a.wav"), 4);
  std::filesystem::remove(m_folder.file("a.wav"));
  SoundBackdrop backdrop;
  const QSignalSpy changed(&backdrop, &SoundBackdrop::changed);
  backdrop.setSong(m_song);
  QImage image(10, 10, QImage::Format_RGB32);
  QPainter painter(&image);
  const ToneRoll roll(*m_song);
  RollScale scale(roll);
  scale.setViewport({600, 300});
  backdrop.paint(painter, {0, 0, 600, 300}, scale, Shades(m_view.palette()));
  ASSERT_TRUE(QTest::qWaitFor([&] { return changed.count() > 0; }, 20000));
  EXPECT_EQ(backdrop.trouble(),
            "The recording a.wav is not there any more, so that there is no picture of it");
  writeSound(m_folder.file("a.wav"), 4);
  backdrop.setSong(m_song);
  EXPECT_EQ(backdrop.trouble(), "") << "it has come back";
}

}  // namespace
}  // namespace korvel::ui
