// SPDX-License-Identifier: GPL-3.0-or-later
#include <regex>

#include "support/Approved.h"
#include "support/Testing.h"
#include "support/store/StandardStore.h"
#include "tab/text/ChordText.h"
#include "tab/text/NoteGlyphs.h"
#include "tab/text/QBTabMatrix.h"
#include "tab/text/SongDrawing.h"

namespace korvel {
namespace {

struct Step {
  const char* frets;
  int duration;
  int root = -1;
  const char* type = "";
};

/// Durations of every glyph, names wider than their chords, groups of one, two, three and four,
/// a chord that is silent, and enough of it for several systems.
const std::vector<Step> kSteps = {
    {"x32010", 4, 0, ""},
    {"x32010", 4, 0, ""},
    {"022000", 4, 4, "m"},
    {"022000", 4, 4, "m"},
    {"x02210", 2, 9, "m"},
    {"xxxxx0", 2},
    {"xxxx1x", 2},
    {"xxxx3x", 1},
    {"xxxxxx", 4, 7, "7"},
    {"xx0232", 1, 2, "7sus4"},
    {"x46464", 1, 1, "7"},
    {"x5xxxc", 3},
    {"3xxxx3", 6, 7, ""},
    {"xxxa8x", 7},
    {"355433", 8, 7, ""},
    {"x02220", 12, 9, ""},
    {"xx323x", 16, 5, "maj7b5"},
    {"022100", 0, 4, ""},
    {"133211", 5, 5, ""},
    {"x24442", 4, 11, "\u00F8"},
    {"x24442", 20, 11, ""},
};

QBChord* addStep(QBSong* song, const Step& step) {
  QBChord* chord = test::addChord(song, step.frets, step.duration);
  if (step.root < 0) return chord;
  chord->setBaseTone(step.root);
  chord->setHarmony(QBTabMgr::db().createHarmony(step.type, 1));
  return chord;
}

void addSteps(QBSong* song) {
  for (const Step& step : kSteps) addStep(song, step);
}

QBChord* chordAt(QBSong* song, std::size_t index) { return song->allChords().at(index); }

void setLoop(QBSong* song, std::size_t from, std::size_t to) {
  song->setFromChord(chordAt(song, from));
  song->setToChord(chordAt(song, to));
}

/// The text with loop marks blanked and blanks at the ends of rows removed.
std::string unmarked(const std::string& text) {
  return std::regex_replace(std::regex_replace(text, std::regex("XX"), "  "), std::regex(" +\n"),
                            "\n");
}

struct SongTextTest : testing::Test {
  test::StandardStore m_store;
  QBSong* m_song =
      m_store.song("A long title, cut by characters: \u00C4\u00D6\u00DC \u4E8C\u80E1 " +
                   std::string(60, '.') + " and the rest of it");
};

TEST_F(SongTextTest, drawsChordByChord) {
  addSteps(m_song);
  // Of two tones on a string the higher fret stays; silenced ones are not drawn.
  chordAt(m_song, 0)->hold()->addTone(5, 3, 9e6);
  chordAt(m_song, 0)->hold()->addTone(5, 1, 9e9);
  chordAt(m_song, 2)->hold()->findToneByString(0)->setActive(false);
  setLoop(m_song, 9, 16);
  test::expectApproved(toString(*m_song), "tab/chords.txt");
  EXPECT_EQ(unmarked(toStringForExport(*m_song)), unmarked(toString(*m_song)));
  EXPECT_EQ(toStringForExport(*m_song).find("XX"), std::string::npos);
}

TEST_F(SongTextTest, drawsMeasureByMeasure) {
  struct Bar {
    int beat;
    int beattype;
    std::vector<Step> steps;
  };
  const std::vector<Bar> bars = {
      {4, 4, {{"x32010", 4, 0, ""}, {"xxx01x", 2}, {"xxxx1x", 2}, {"3xx003", 8, 7, ""}}},
      {3, 4, {{"x02210", 1, 9, "m"}, {"xxxx1x", 1}, {"xxx2xx", 1}, {"xx2xxx", 1}, {"x0xxxx", 8}}},
      {6, 8, {{"022000", 3, 4, "m7"}, {"xxxxx0", 6}, {"xxxxxx", 2}, {"xxxxx3", 1}}},
      {12, 8, {{"133211", 24, 5, "maj7"}}},
      {5, 4, {{"xx0232", 4, 2, ""}, {"xx0233", 16, 2, "sus4"}}},
      {4, 4, std::vector<Step>(16, {"x24442", 1, 11, "m7b5"})}};
  for (const Bar& bar : bars) {
    QBMeasure* measure = QBTabMgr::db().createMeasure(m_song, bar.beat, bar.beattype);
    for (const Step& step : bar.steps) measure->addChord(addStep(m_song, step));
  }
  setLoop(m_song, 2, 10);
  test::expectApproved(toString(*m_song), "tab/measures.txt");
  EXPECT_EQ(unmarked(toStringForExport(*m_song)), unmarked(toString(*m_song)));
  EXPECT_EQ(toStringForExport(*m_song).find("XX"), std::string::npos);
}

TEST_F(SongTextTest, loopWithOnlyAnEndMarksTheFirstChordAlone) {
  addSteps(m_song);
  m_song->setToChord(chordAt(m_song, 5));
  const std::string text = toString(*m_song);
  const std::size_t mark = text.find("XX");
  ASSERT_NE(mark, std::string::npos);
  EXPECT_EQ(text.find("XX", mark + 2), std::string::npos);
  // It stands where the second chord begins: the first takes nine columns from column 8 on.
  EXPECT_EQ(mark - (text.rfind('\n', mark) + 1), 17U);
  m_song->setToChord(nullptr);
  m_song->setFromChord(chordAt(m_song, 0));
  EXPECT_EQ(toString(*m_song).find("XX"), std::string::npos);
}

TEST_F(SongTextTest, exportAnswersTrueWhateverBecomesOfTheFile) {
  addSteps(m_song);
  setLoop(m_song, 1, 2);
  const std::string file = m_store.folder().file("out.txt");
  EXPECT_TRUE(tofile(*m_song, file));
  EXPECT_EQ(test::readFile(file), toStringForExport(*m_song));
  EXPECT_TRUE(tofile(*m_song, m_store.folder().file("missing/out.txt")));
}

TEST_F(SongTextTest, chordsRememberWhereTheyWereFirstDrawn) {
  QBChord* chord = test::addChord(m_song, "x32010", 4);
  QBTabMatrix matrix;
  matrix.m_xPos = 20;
  addToTabulatureWithLineBreak(*chord, matrix, nullptr, 1, 102);
  EXPECT_EQ(matrix.m_xPos, 33);
  addToTabulatureWithLineBreak(*chord, matrix, nullptr, 0, 102);
  EXPECT_EQ(matrix.m_xPos, 42);
  EXPECT_EQ(chord->m_xPosInMatrix, 20);
  EXPECT_EQ(chord->m_yPosInMatrix, 1);
  QBMeasure* measure = QBTabMgr::db().createMeasure(m_song, 4, 4);
  addToTabulatureWithMetric(*chord, matrix, nullptr, 0, 142, *measure);
  EXPECT_EQ(chord->m_xPosInMatrix, 42);
  EXPECT_EQ(measure->m_counter, 4);
}

TEST_F(SongTextTest, chordWritesItsOwnColumnNameAndPosition) {
  test::addChord(m_song, "xxxxxx");
  QBChord* chord = addStep(m_song, {"x02c10", 4, 9, "m"});
  EXPECT_EQ(toString(*chord), "0\n1\n12\n2\n0\n \n");
  QBTabMatrix matrix;
  matrix.m_yPos = 2;
  addAsChord2(*chord, matrix);
  addPosition(*chord, matrix);
  addAsChord(*chord, matrix);
  EXPECT_EQ(matrix.m_xPos, 5);
  EXPECT_EQ(matrix.getString(3, 0), "m");
  EXPECT_EQ(matrix.getString(2, 1), "A");
  EXPECT_EQ(matrix.getString(3, 11), "2");
}

TEST_F(SongTextTest, beatsAreCountedButForTheLastSlotOfTwelveEighths) {
  EXPECT_EQ(metricString(4, 4, 4, 4, 2), "2 . + .");
  EXPECT_EQ(metricString(12, 1, 3, 4, 0), "") << "beyond the measure";
  EXPECT_EQ(metricString(0, 4, 2, 4, 0), "") << "no ruler for that";
  EXPECT_EQ(metricString(22, 2, 12, 8, 0), "12");
  EXPECT_EQ(metricString(23, 1, 12, 8, 0), "");
}

}  // namespace
}  // namespace korvel
