// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/songs/QBChord.h"

#include "analysis/spectrum/QBFFTGuitar.h"
#include "arrange/hands/PatternOfChord.h"
#include "model/book/QBLeftHandPattern.h"
#include "model/book/QBRightHandPattern.h"
#include "model/recorded/QBBlock.h"
#include "support/Testing.h"
#include "support/store/StandardStore.h"

namespace korvel {
namespace {

struct QBChordTest : testing::Test {
  QBChord* chord(std::string_view frets) { return test::addChord(m_song, frets); }

  test::StandardStore m_store;
  QBTabMgr& m_db = QBTabMgr::db();
  QBSong* m_song = m_store.song("song");
};

TEST_F(QBChordTest, scannedTonesAreThoseOfTheFirstCall) {
  QBChord* minor = chord("x02210");
  const auto& scanned = minor->readAllTones();
  ASSERT_EQ(scanned.size(), 5U);
  minor->hold()->deleteToneOfString(4);
  minor->hold()->addTone(0, 0, 1.0);
  EXPECT_EQ(&minor->readAllTones(), &scanned);
  ASSERT_EQ(scanned.size(), 5U);
  EXPECT_TRUE(scanned[3]->isDeleted());
  EXPECT_EQ(scanned[3]->fret(), 1) << "still readable";
}

TEST_F(QBChordTest, nameIsRootAndTypeAndTheKeyIsTheFirstName) {
  QBChord* minor = chord("x02210");
  EXPECT_EQ(minor->toKey(), std::nullopt);
  minor->setBaseTone(9);
  EXPECT_EQ(minor->fullHarmonyName(), "A");
  minor->setHarmony(m_db.createHarmony("m", 1));
  EXPECT_EQ(minor->fullHarmonyName(), "Am");
  EXPECT_EQ(minor->toKey(), "Am");
  minor->setBaseTone(0);
  EXPECT_EQ(minor->fullHarmonyName(), "Cm");
  EXPECT_EQ(minor->toKey(), "Am");
}

TEST_F(QBChordTest, copyGoesToTheEndOfItsSongAndTakesTheBlock) {
  QBChord* minor = chord("x02210");
  const auto spectrum = std::make_shared<QBFFTGuitar>(std::vector<double>(), 5);
  minor->setM_fft(spectrum);
  minor->setTimestamp(77);
  minor->setDuration(6);
  minor->setBaseTone(9);
  minor->setHarmony(m_db.createHarmony("m", 1));
  QBBlock* block = m_db.createBlock(minor);
  minor->setGroupNumber(3);
  minor->setMeasure(m_db.createMeasure(m_song, 4, 4));
  minor->setPattern(m_db.addPattern("xxx-x-", 3));
  minor->setLeftpattern(m_db.addLeftPattern("012200", 0));
  QBSong* other = m_store.song("other");
  other->createChord();
  QBChord* copy = minor->clone(other);
  EXPECT_EQ(copy->song(), other);
  EXPECT_EQ(copy->position(), 2);
  EXPECT_EQ(copy->m_fft(), spectrum);
  EXPECT_EQ(copy->timestamp(), 77);
  EXPECT_EQ(copy->duration(), 6);
  EXPECT_EQ(copy->fullHarmonyName(), "Am");
  EXPECT_TRUE(copy->equals(*minor));
  EXPECT_EQ(copy->block(), block);
  EXPECT_EQ(minor->block(), nullptr) << "a block has one chord";
  EXPECT_FALSE(copy->hasGroupNumber());
  EXPECT_EQ(copy->measure(), nullptr);
  EXPECT_EQ(copy->pattern(), nullptr);
  EXPECT_EQ(copy->leftpattern(), nullptr);
  EXPECT_EQ(m_db.context().fetch("QBHold").size(), 3U) << "no hold is left over";
  EXPECT_FALSE(chord("xxxxxx")->clone(other)->hasBaseTone());
}

TEST_F(QBChordTest, keepsTheSmallestDurationOffered) {
  QBChord* minor = chord("x02210");
  minor->setDuration(0);
  for (const auto& [offered, kept] : {std::pair(8, 8), {12, 8}, {4, 4}, {4, 4}, {6, 4}}) {
    minor->setDurationValue(offered);
    EXPECT_EQ(minor->duration(), kept);
  }
}

TEST_F(QBChordTest, weightCountsTonesSpanAndPatterns) {
  QBChord* minor = chord("x02210");
  EXPECT_EQ(minor->weight(), 5 + (5 - 1) + 2);
  minor->setPattern(m_db.addPattern("xxx-x-", 3));
  EXPECT_EQ(minor->weight(), 11 + (3 + 4) * 4 + 2);
  minor->setLeftpattern(m_db.addLeftPattern("012200", 0));
  EXPECT_EQ(minor->weight(), 11 + 30 + 5);
  EXPECT_EQ(chord("x3xxxx")->weight(), 1 + (5 - 7) + 2);
}

TEST_F(QBChordTest, patternIsTheHeaviestThatFitsAndStays) {
  QBRightHandPattern* light = m_db.addPattern("--xxx-", 1);
  QBRightHandPattern* heavy = m_db.addPattern("-xxx--", 2);
  m_db.addPattern("xxx-x-", 2);
  m_db.addPattern("-----x", 9);
  m_db.loadPatterns();
  QBChord* previous = chord("x022xx");
  QBChord* minor = chord("x0221x");
  EXPECT_EQ(readPattern(*minor, previous), heavy) << "the first of equals";
  EXPECT_EQ(previous->pattern(), light) << "chosen on the way";
  minor->hold()->deleteToneOfString(4);
  EXPECT_EQ(readPattern(*minor, nullptr), heavy) << "once chosen it is kept";
  EXPECT_EQ(readPattern(*chord("x0xxxx"), nullptr), nullptr);
}

}  // namespace
}  // namespace korvel
