// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/hands/QBApplyRightHands.h"
#include "arrange/hands/QBLeftHandExtractor.h"
#include "arrange/hands/QBLeftHandExtractorPello.h"
#include "arrange/hands/QBRightHandExtractor.h"
#include "arrange/hands/QBToneToNextString.h"
#include "arrange/harmony/QBChordCleaner.h"
#include "arrange/shelf/QBToneToNextStringAlternated.h"
#include "model/book/QBLeftHandPattern.h"
#include "model/book/QBRightHandPattern.h"
#include "support/StandardStore.h"
#include "support/Testing.h"

namespace korvel {
namespace {

using Chords = std::initializer_list<const char*>;

struct PlayabilityFiltersTest : testing::Test {
  /// A song whose chords last 4, its tones 1, 2, 3 ... times as loud.
  QBSong* songOf(Chords chords) {
    QBSong* song = m_album->createSong("Song");
    for (const char* frets : chords) {
      const QBChord* chord = test::addChord(song, frets, 4);
      for (int i = 1; QBTone * tone : chord->hold()->tones()) tone->setAmp(i++);
    }
    return song;
  }
  template <class Visitor>
  QBSong* rewritten(Chords chords) {
    QBSong* source = songOf(chords);
    const std::string before = test::fretsOf(*source);
    QBSong* target = m_album->createSong("Target");
    Visitor visitor(target);
    source->iterate(visitor);
    EXPECT_EQ(test::fretsOf(*source), before);
    return target;
  }
  template <class Visitor>
  std::string fretsBy(Chords chords) {
    return test::fretsOf(*rewritten<Visitor>(chords));
  }

  test::StandardStore m_store;
  QBTabMgr& m_db = QBTabMgr::db();
  QBInstrument* m_guitar = m_db.createInstrument(m_store.standard(), "guitar", true, true, 0.5F, 1);
  QBAlbum* m_album = m_db.createAlbum("Album", false);
};

// Absolute notes of the open strings: 4, 9, 14, 19, 23, 28.
TEST_F(PlayabilityFiltersTest, tonesArePushedToTheNextLowerString) {
  using Push = QBToneToNextString;
  EXPECT_EQ(fretsBy<Push>({"x02210", "3xxxxx", "xxxxxx"}), "57755x 3xxxxx xxxxxx ");
  EXPECT_EQ(fretsBy<Push>({"xxxxx7", "xxxxx6", "02xxxx"}), "xxxxx7 xxxxbx [07]xxxxx ")
      << "to frets 0 to 11";
  const QBSong* pushed = rewritten<Push>({"50xxxx"});
  EXPECT_EQ(test::fretsOf(*pushed), "5xxxxx ");
  EXPECT_EQ(pushed->chords().at(0)->hold()->tones().at(0)->amp(), 2.0) << "of two that met";
  EXPECT_EQ(pushed->chords().at(0)->duration(), 1) << "that of a new chord";
}

TEST_F(PlayabilityFiltersTest, alternatedPushSparesTheLowestStringAndPlacesJustUsed) {
  EXPECT_EQ(fretsBy<QBToneToNextStringAlternated>({"x02210", "x02210", "x02210"}),
            "x[07]755x x[07]x[25]5x x0[27]x10 ");
}

/// Patterns are written from the highest string down, chords from the lowest up.
void addRightHands(QBTabMgr& db) {
  db.addPattern("-x---x", 1);
  db.addPattern("-x-x-x", 1);
  db.addPattern("x-x---", 9);
  db.addPattern("-x-x--", 0);
  db.addPattern("--xxxx", 0);  // weighs as much as the second one and is looked at before
  db.loadPatterns();
}

const Chords kStruck = {"x0xx1x", "022x1x", "01221x", "0122x0", "0x2x1x", "xxxxxx"};
constexpr const char* kAfterStroke = "x0xx1x 0x2x1x 0122xx xxx2x0 0x2x1x xxxxxx ";

TEST_F(PlayabilityFiltersTest, heaviestPatternThatSoundsIsStruck) {
  addRightHands(m_db);
  const QBSong* struck = rewritten<QBRightHandExtractor>(kStruck);
  EXPECT_EQ(test::fretsOf(*struck), kAfterStroke);
  EXPECT_EQ(struck->chords().at(0)->duration(), 4) << "copied: no pattern fits";
  EXPECT_EQ(struck->chords().at(1)->duration(), 1) << "that of a new chord";
  EXPECT_EQ(struck->chords().at(1)->hold()->findToneByString(2)->amp(), 3.0);
  std::string stored;
  for (const QBChord* chord : m_album->findSongByName("Song")->chords())
    stored += chord->pattern() ? std::to_string(chord->pattern()->strings().size()) : "-";
  EXPECT_EQ(stored, "-3323-") << "with the source's chords that another one follows";
  m_db.addPattern("------", 0);
  m_db.loadPatterns();
  EXPECT_EQ(fretsBy<QBRightHandExtractor>({"x0xx1x"}), "xxxxxx ") << "nothing is asked for";
}

TEST_F(PlayabilityFiltersTest, patternsAreAppliedInPlace) {
  addRightHands(m_db);
  QBSong* song = songOf(kStruck);
  song->allChords().at(4)->hold()->addTone(2, 5, 1);
  QBApplyRightHands visitor;
  song->iterate(visitor);
  EXPECT_EQ(test::fretsOf(*song), "x0xx1x 0x2x1x 0122xx xxx2x0 0x[25]x1x xxxxxx ");
  EXPECT_EQ(song->allChords().at(0)->pattern(), nullptr);
  EXPECT_EQ(song->allChords().at(4)->pattern(), m_db.patterns().at(1).get()) << "the last as well";
}

// A run of upper tones weighs a unit for each tone, less one for each fret that it spans.
TEST_F(PlayabilityFiltersTest, leftHandKeepsTheUpperTonesThatWeighLeast) {
  EXPECT_EQ(fretsBy<QBLeftHandExtractorPello>({"x02210", "5xx111", "x0x2x0", "x02xxx", "xxxxxx"}),
            "xxx210 5xx111 x0x2x0 x02xxx xxxxxx ");
  EXPECT_EQ(fretsBy<QBLeftHandExtractorPello>({"022100"}), "xx2100 ") << "the longest of equals";
  EXPECT_EQ(m_album->findSongByName("Varnholm"), nullptr);
}

struct Score {
  const char* pattern;  // from the highest string down
  Chords grip;          // layers of one grip, from the lowest string up
  float score;
};

const Score kScores[] = {
    {"012200", {"002210"}, 1},
    {"012200", {"557765"}, 1},
    {"012200", {"557763"}, 0},  // five at one place, the sixth out of reach
    {"000000", {"bbbbbb"}, 1},
    {"000000", {"cccccc"}, 0},
    {"000000", {"0001xx"}, 1},
    {"000000", {"0002xx"}, 0},
    {"000000", {"00x5xx"}, 1},
    {"000000", {"0033xx"}, 0.5F},  // of equal counts only one is taken
    {"xxxx00", {"0002xx"}, 0.5F},
    {"000000", {"xxxxxx"}, 0},
    {"000000", {"2222xx", "111xxx", "00xxxx"}, 1},
    {"000000", {"0000xx", "111xxx", "22xxxx"}, 0},  // the third place lies above the second
};

TEST_F(PlayabilityFiltersTest, handShapesAreScoredAlongTheNeck) {
  for (const Score& test : kScores) {
    QBChord* chord = test::addChord(m_album->createSong("Song"), *test.grip.begin());
    for (const char* layer : test.grip) chord->mergeWith(*test::addChord(chord->song(), layer));
    EXPECT_FLOAT_EQ(
        QBLeftHandExtractor::matches(*m_db.addLeftPattern(test.pattern, 1), *chord->hold()),
        test.score)
        << test.pattern << ' ' << test::fretsOf(*chord);
  }
}

TEST_F(PlayabilityFiltersTest, firstOfTheBestHandShapesIsTaken) {
  const QBChord* chord = test::addChord(m_album->createSong("Song"), "002210");
  EXPECT_EQ(QBLeftHandExtractor(nullptr).findPatternByChord(*chord), nullptr);
  m_db.addLeftPattern("000000", 0);
  m_db.addLeftPattern("012200", 2);
  QBLeftHandPattern* first = m_db.addLeftPattern("012200", 1);
  m_db.loadLeftPatterns();
  EXPECT_EQ(QBLeftHandExtractor(nullptr).findPatternByChord(*chord), first);
}

TEST_F(PlayabilityFiltersTest, tonesThatTheChordDoesNotSupportAreCleaned) {
  const Chords chords = {"133211", "xxx2x1", "022100", "x01xxx", "xxxxx0", "xxxxxx"};
  QBSong* source = songOf(chords);
  const QBSong* cleaned = QBChordCleaner::clean(*source);
  // A supporting tone counts though it goes itself; the two lowest strings are always believed.
  EXPECT_EQ(test::fretsOf(*cleaned), "133x11 xxxxx1 022x00 x0xxxx ");
  EXPECT_EQ(cleaned->title(), "Cleaned");
  EXPECT_EQ(cleaned->tuning(), m_store.standard());
  EXPECT_EQ(cleaned->album(), nullptr);
  EXPECT_EQ(cleaned->chords().at(0)->duration(), 4);
  EXPECT_EQ(source->chords().size(), chords.size());
  EXPECT_EQ(QBChordCleaner::ofString(6, source->chords().at(0)), nullptr);
}

}  // namespace
}  // namespace korvel
