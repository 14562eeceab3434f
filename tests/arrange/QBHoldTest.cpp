// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/songs/QBHold.h"

#include "support/StandardStore.h"
#include "support/Testing.h"

namespace korvel {
namespace {

struct QBHoldTest : testing::Test {
  QBHold& hold(std::string_view frets) { return *test::addChord(m_song, frets)->hold(); }

  test::StandardStore m_store;
  QBSong* m_song = m_store.song("song");
};

TEST_F(QBHoldTest, addingAToneThatIsThereChangesNothing) {
  QBHold& grip = hold("x3xxxx");
  QBTone* known = grip.findTone(1, 3);
  EXPECT_EQ(grip.addTone(1, 3, 5.0), known);
  EXPECT_EQ(known->amp(), 1000000);
  EXPECT_EQ(grip.tones().size(), 1U);
  EXPECT_NE(grip.addTone(1, 2, 5.0), known) << "a string may have several";
  EXPECT_EQ(grip.allTonesOfString(1).size(), 2U);
}

TEST_F(QBHoldTest, openStringsAreNoLowestFret) {
  QBHold& grip = hold("xxxxxx");
  grip.addTone(0, 0, 1.0);
  EXPECT_EQ(grip.m_minFret, 0);
  grip.addTone(1, 3, 1.0);
  EXPECT_EQ(grip.m_minFret, 3);
  grip.addTone(2, 5, 1.0);
  grip.addTone(3, 2, 1.0);
  grip.addTone(4, 0, 1.0);
  EXPECT_EQ(grip.m_minFret, 2);
  EXPECT_EQ(grip.m_maxFret, 5);
  EXPECT_EQ(grip.sizeOfHold(), 3);
  EXPECT_EQ(hold("x5xxxx").sizeOfHold(), 7) << "a single tone is wider than any grip";
}

TEST_F(QBHoldTest, applyingKeepsTheLowestFretOfAString) {
  QBHold& grip = hold("xxxxxx");
  QBTone* tone = grip.applyTone(1, 5, 10.0);
  EXPECT_EQ(grip.applyTone(1, 5, 20.0), tone);
  EXPECT_EQ(grip.applyTone(1, 9, 20.0), tone);
  EXPECT_EQ(tone->amp(), 10.0);
  EXPECT_EQ(grip.m_maxFret, 9) << "even of a tone that was not taken";
  EXPECT_EQ(grip.applyTone(1, 3, 30.0), tone);
  EXPECT_EQ(tone->fret(), 3);
  EXPECT_EQ(tone->amp(), 30.0);
  EXPECT_EQ(grip.m_minFret, 0) << "applying alone spans from the nut";
  EXPECT_EQ(grip.toStringClean(), "----3-");
}

TEST_F(QBHoldTest, indexKeepsTheFretThatAToneWasFiledUnder) {
  QBHold& grip = hold("xxxxx5");
  QBTone* tone = grip.findTone(5, 5);
  EXPECT_EQ(grip.applyTone(5, 2, 1.0), tone);
  EXPECT_EQ(grip.setFretOfString(5, 1), tone);
  EXPECT_EQ(grip.findTone(5, 5), tone);
  EXPECT_EQ(grip.findTone(5, 1), nullptr);
  EXPECT_EQ(grip.findTone(4, 1), nullptr);
  grip.applyTone(4, 1, 1.0);
  EXPECT_EQ(grip.findTone(4, 1), nullptr) << "applied tones are not filed at all";
  EXPECT_NE(grip.findToneByString(4), nullptr);
  EXPECT_EQ(grip.setFretOfString(3, 7)->amp(), 0.0) << "a new tone";
  EXPECT_NE(grip.findTone(3, 7), nullptr);
}

TEST_F(QBHoldTest, tonesAreFoundUpToTheEleventhFret) {
  QBHold& grip = hold("02bc00");
  EXPECT_EQ(grip.findToneFrom(1, 0)->fret(), 2);
  EXPECT_EQ(grip.findToneFrom(1, 3), nullptr);
  EXPECT_EQ(grip.findToneFrom(2, 5)->fret(), 11);
  EXPECT_EQ(grip.findToneFrom(3, 0), nullptr);
  EXPECT_EQ(grip.findToneFrom(0, 12), nullptr);
}

TEST_F(QBHoldTest, tonesAreFoundByTheirNote) {
  QBHold& minor = hold("x02210");
  EXPECT_TRUE(minor.findNote(0));
  EXPECT_FALSE(minor.findNote(1));
  EXPECT_EQ(minor.findLargeNote(16)->string(), 2);
  EXPECT_EQ(minor.findLargeNote(4), nullptr) << "the same note, but an octave lower";
  EXPECT_EQ(minor.findMelodyTone()->string(), 5);
  EXPECT_EQ(minor.findBrassTone()->string(), 1);
  QBHold& twice = hold("50xx50");
  EXPECT_EQ(twice.findBrassTone()->string(), 0) << "the first of equals";
  EXPECT_EQ(twice.findMelodyTone()->string(), 4);
  EXPECT_EQ(hold("xxxxxx").findMelodyTone(), nullptr);
  EXPECT_EQ(hold("xxxxxx").findBrassTone(), nullptr);
}

TEST_F(QBHoldTest, deletedTonesLeaveTheIndexAndStayReadable) {
  QBHold& grip = hold("x02210");
  const platform::Ref<QBTone> gone = grip.findTone(4, 1);
  grip.deleteToneOfString(4);
  EXPECT_TRUE(gone->isDeleted());
  EXPECT_EQ(gone->fret(), 1);
  EXPECT_EQ(grip.findTone(4, 1), nullptr);
  EXPECT_NE(grip.addTone(4, 1, 1.0), gone.get());
  grip.deleteToneOfString(0);
  EXPECT_TRUE(grip.removeTonesByNote(4));
  EXPECT_EQ(grip.toStringClean(), "-12-0-") << "both E";
  EXPECT_FALSE(grip.removeTonesByNote(4));
}

TEST_F(QBHoldTest, comparesOneSided) {
  QBHold& part = hold("x0221x");
  QBHold& whole = hold("x02210");
  EXPECT_TRUE(part.equals(whole));
  EXPECT_FALSE(whole.equals(part));
  EXPECT_TRUE(hold("xxxxxx").equals(part));
}

TEST_F(QBHoldTest, durationsAreThoseOfActiveTones) {
  QBHold& grip = hold("x02xxx");
  QBTone* first = grip.findToneByString(1);
  QBTone* second = grip.findToneByString(2);
  first->setDuration(4);
  EXPECT_EQ(grip.minimumDuration(), 2);
  EXPECT_EQ(grip.maximumDuration(), 4);
  first->setActive(false);
  EXPECT_EQ(grip.maximumDuration(), 2);
  second->setDuration(1000);
  EXPECT_EQ(grip.minimumDuration(), 0) << "as long as that is no duration";
  EXPECT_FALSE(grip.isEmpty());
  second->setActive(false);
  EXPECT_TRUE(grip.isEmpty());
  EXPECT_EQ(grip.minimumDuration(), 0);
  EXPECT_EQ(grip.maximumDuration(), 0);
}

struct Grip {
  const char* frets;
  bool barreFirst, barreLater;
  bool playableFirst, playableLater;
};

// The first answer is about an unbroken run of strings, later ones about a finger across three.
const Grip kGrips[] = {
    {"113311", true, true, true, true},      // two frets beside the barre
    {"133211", true, false, true, false},    // three: too many, and six fingers
    {"xx0232", true, false, true, true},     // only two strings at the lowest fret
    {"x02210", false, false, true, true},    // an open string before the fretted ones
    {"x1x333", false, false, true, true},    // a gap
    {"111115", true, true, false, false},    // a barre, but too wide
    {"xx0x14", true, false, true, false},    // a span of three: for the barre that it is not
    {"xxxxx3", true, false, false, false},   // a single tone
    {"x3xxxx", false, false, false, false},  // on a lower string
    {"xxxxxx", true, false, true, true},
};

TEST_F(QBHoldTest, barreIsAnsweredMoreStrictlyTheSecondTime) {
  for (const Grip& grip : kGrips) {
    QBHold& asked = hold(grip.frets);
    EXPECT_EQ(asked.isBarre(), grip.barreFirst) << grip.frets;
    EXPECT_EQ(asked.isBarre(), grip.barreLater) << grip.frets;
    QBHold& held = hold(grip.frets);
    EXPECT_EQ(held.isPlayable(), grip.playableFirst) << grip.frets;
    EXPECT_EQ(held.isPlayable(), grip.playableLater) << grip.frets;
  }
}

TEST_F(QBHoldTest, writesItsTones) {
  QBHold& grip = hold("xa2210");
  EXPECT_EQ(grip.toString(), "0\r\n1\r\n2\r\n2\r\n10\r\n-\r\n");
  EXPECT_EQ(grip.toStringClean(), "012210-");
  EXPECT_EQ(hold("x02210").tonesAsString(), "9,4,9,0,4,");
}

TEST_F(QBHoldTest, copyHasEveryToneAndTakesThePlaceOfTheEmptyOne) {
  QBHold& grip = hold("x02210");
  QBTone* tone = grip.findToneByString(3);
  tone->setDuration(8);
  tone->setGroup(3);
  tone->setActive(false);
  QBChord* other = m_song->createChord();
  const platform::Ref<QBHold> empty = other->hold();
  QBHold* copy = grip.clone(other);
  EXPECT_EQ(other->hold(), copy);
  EXPECT_TRUE(empty->isDeleted());
  EXPECT_EQ(copy->toStringClean(), grip.toStringClean());
  EXPECT_EQ(copy->m_minFret, 1);
  EXPECT_EQ(copy->m_maxFret, 2);
  const QBTone* toneCopy = copy->findToneByString(3);
  EXPECT_TRUE(toneCopy->equals(*tone));
  EXPECT_EQ(toneCopy->dur(), 8);
  EXPECT_EQ(toneCopy->group(), 3);
  EXPECT_EQ(toneCopy->amp(), tone->amp());
  EXPECT_TRUE(toneCopy->isActive()) << "a copied tone sounds again";
  EXPECT_FALSE(copy->findToneByString(4)->hasGroup());
}

}  // namespace
}  // namespace korvel
