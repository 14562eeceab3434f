// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/instruments/QBTuning.h"

#include "model/instruments/QBString.h"
#include "support/Testing.h"
#include "support/store/StandardStore.h"

namespace korvel {
namespace {

struct QBTuningTest : testing::Test {
  test::StandardStore m_store;
  QBTuning& m_standard = *m_store.standard();
};

TEST_F(QBTuningTest, fretsFollowByRepeatedMultiplication) {
  float f = 82.41F;
  for (int fret = 0; fret <= 12; ++fret, f *= 1.0594631F)
    EXPECT_EQ(m_standard.computeFrequency(0, fret), f) << fret;
  EXPECT_FLOAT_EQ(m_standard.computeFrequency(0, 12), 164.82011F);
  EXPECT_THROW(m_standard.computeFrequency(0, 13), std::out_of_range);
  EXPECT_THROW(m_standard.computeFrequency(0, -1), std::out_of_range);
  EXPECT_THROW(m_standard.computeFrequency(6, 0), std::out_of_range);
  EXPECT_FLOAT_EQ(m_standard.computeLowerDistance(1, 0), (110.0F - 110.0F / 1.0594631F) / 2);
  EXPECT_FLOAT_EQ(m_standard.computeUpperDistance(1, 0), (1.0594631F * 110.0F - 110.0F) / 2);
}

TEST_F(QBTuningTest, onlyTheLowestStringsAbsoluteNoteFollowsTheTuning) {
  QBTuning* openG = QBTabMgr::db().createTuning("Open G", 3);
  openG->createOpenGStrings();
  const std::vector<std::pair<QBTuning*, std::vector<int>>> expected = {
      {&m_standard, {4, 9, 14, 19, 23, 28}},
      {m_store.dropD(), {2, 9, 14, 19, 23, 28}},
      {openG, {7, 9, 14, 19, 23, 28}}};
  for (const auto& [tuning, notes] : expected)
    for (int string = 0; string < 6; ++string)
      EXPECT_EQ(tuning->largeToneOfString(string), notes[static_cast<std::size_t>(string)]);
  EXPECT_EQ(m_standard.openStrings().pitches(), kStandardPitches);
  EXPECT_EQ(m_store.dropD()->openStrings().pitches(), kDropDPitches);
  EXPECT_EQ(openG->openStrings().pitches(), (OpenPitches{31, 47, 50, 55, 59, 62}))
      << "as they sound";
  QBString* stranger = QBTabMgr::db().createString(nullptr, 4, 6, 1);
  EXPECT_EQ(stranger->largeToneOfString(), -1000000);
  EXPECT_EQ(openG->noteOfString(1), 11);
  EXPECT_EQ(m_standard.toString(), "EBGDAE");
  EXPECT_EQ(m_store.dropD()->toString(), "EBGDAD");
  EXPECT_EQ(openG->toString(), "DBGDBG");
  EXPECT_EQ(openG->computeFrequency(0, 0), 49.0F);
}

TEST_F(QBTuningTest, instrumentsAskTheSelectedTuning) {
  QBInstrument* guitar =
      QBTabMgr::db().createInstrument(&m_standard, "Guitar", true, true, 0.5F, 1);
  for (const auto& [note, string] : {std::pair(4, 0), {8, 0}, {9, 1}, {27, 4}, {28, 5}, {40, 5}})
    EXPECT_EQ(guitar->stringByLargeTone(note), string) << note;
  EXPECT_EQ(guitar->stringByLargeTone(3), 5) << "below the lowest string is nowhere";
  QBTabMgr::db().selectTuning(m_store.dropD());
  EXPECT_EQ(guitar->largeToneOfString(0), 2);
  EXPECT_EQ(guitar->stringByLargeTone(3), 0);
  EXPECT_TRUE(m_store.dropD()->isSelected());
  EXPECT_FALSE(m_standard.isSelected());
}

TEST_F(QBTuningTest, openStringsHaveABandOfHalfASemitone) {
  for (const float inside : {80.1F, 82.41F, 84.86F})
    EXPECT_TRUE(m_standard.isOpenLowerE(inside)) << inside;
  for (const float outside : {80.0F, 84.87F})
    EXPECT_FALSE(m_standard.isOpenLowerE(outside)) << outside;
  EXPECT_TRUE(m_store.dropD()->isOpenLowerE(73.41F)) << "the names say places";
  const float upper = 110.0F + (m_standard.computeFrequency(1, 1) - 110.0F) * 0.5F;
  EXPECT_TRUE(m_standard.isOpenA(upper)) << "bounds belong to the band";
}

TEST_F(QBTuningTest, frequencyBelongsToTheStringBelow) {
  const auto stringOf = [&](float f) { return m_standard.findStringByFrequency(f)->order(); };
  EXPECT_EQ(stringOf(82.41F), 0);
  EXPECT_EQ(stringOf(110.0F), 0) << "also at the next string's own frequency";
  EXPECT_EQ(stringOf(110.1F), 1);
  EXPECT_EQ(stringOf(329.62F), 4);
  EXPECT_EQ(stringOf(700.0F), 5);
  EXPECT_EQ(stringOf(30.0F), 5) << "nowhere";
}

TEST_F(QBTuningTest, stringsAreSortedOnce) {
  QBTuning* reversed = QBTabMgr::db().createTuning("Reversed", 3);
  for (int order = 5; order >= 0; --order)
    QBTabMgr::db().createString(reversed, order, order, 100.0F);
  EXPECT_EQ(reversed->findStringByPosition(1)->order(), 1);
  QBTabMgr::db().createString(reversed, 0, 6, 100.0F);
  EXPECT_EQ(reversed->strings().size(), 7U);
  EXPECT_EQ(reversed->allTones().size(), 6U) << "strings added later are not seen";
}

}  // namespace
}  // namespace korvel
