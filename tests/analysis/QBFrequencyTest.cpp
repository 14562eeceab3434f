// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/spectrum/QBFrequency.h"

#include "analysis/shelf/BaseTone.h"
#include "analysis/spectrum/QBFrequencyMapper.h"
#include "analysis/spectrum/QBFrequencyMatrix.h"
#include "model/instruments/QBString.h"
#include "support/Testing.h"
#include "support/store/StandardStore.h"

namespace korvel {
namespace {

/// "string/fret" that plays a frequency in a tuning, or "-".
std::string place(float f, QBTuning* tuning) {
  const auto matrix = QBFrequencyMatrix::infoByFrequencyComputed(f, tuning);
  if (!matrix) return "-";
  EXPECT_EQ(matrix->height(), 1);
  return std::to_string(std::lround(matrix->getFloat(2, 0))) + "/" +
         std::to_string(std::lround(matrix->getFloat(1, 0)));
}

/// Of all tones that are detected.
std::string places(QBTuning* tuning) {
  std::string places;
  for (const float f : QBFrequencyMapper::smallD(nullptr))
    if (f != 0) places += place(f, tuning) + " ";
  return places;
}

TEST(QBFrequencyMatrix, findsEveryToneOnceOnTheNeck) {
  test::StandardStore store;
  // The two lowest tones lie below the low E, and the twelfth fret is not searched.
  EXPECT_EQ(places(store.standard()),
            "- - 0/0 0/1 0/2 0/3 0/4 1/0 1/1 1/2 1/3 1/4 2/0 2/1 2/2 2/3 2/4 3/0 3/1 3/2 3/3 4/0 "
            "4/1 4/2 4/3 4/4 5/0 5/1 5/2 5/3 5/4 5/5 5/6 5/7 5/8 5/9 5/10 5/11 - ");
  // What would be played above fret 4 of the lowest string is not searched in drop D.
  EXPECT_TRUE(places(store.dropD()).starts_with("0/0 0/1 0/2 0/3 0/4 - - 1/0 1/1 "));
  EXPECT_EQ(places(test::addTuning("DADGAD", {38, 45, 50, 55, 57, 62})),
            "0/0 0/1 0/2 0/3 0/4 0/5 0/6 1/0 1/1 1/2 1/3 1/4 2/0 2/1 2/2 2/3 2/4 3/0 3/1 4/0 4/1 "
            "4/2 4/3 4/4 5/0 5/1 5/2 5/3 5/4 5/5 5/6 5/7 5/8 5/9 5/10 5/11 - - - ");
}

TEST(QBFrequencyMatrix, acceptsLessThanATenthOfASemitone) {
  test::StandardStore store;
  const float semitone = 110 * 1.0594631F - 110;
  EXPECT_EQ(place(110 + 0.07F * semitone, store.standard()), "1/0");
  EXPECT_EQ(place(110 + 0.08F * semitone, store.standard()), "-");
  EXPECT_EQ(place(110 - 0.066F * semitone, store.standard()), "1/0");
  EXPECT_EQ(place(110 - 0.075F * semitone, store.standard()), "-");
}

TEST(QBFrequencyMatrix, findsNothingWithoutATuning) {
  test::StandardStore store;
  EXPECT_EQ(place(110, nullptr), "-");
}

TEST(QBFrequencyMatrix, tableOfBinsKeepsTheTuningOfItsFirstUse) {
  test::StandardStore store;
  const auto table = QBFrequencyMatrix::buildSpektrum(store.standard());
  ASSERT_EQ(table.size(), 129U);
  EXPECT_EQ(table[41 - 7], 41 * QBFrequencyMapper::kBinWidth);
  EXPECT_EQ(table[29 - 7], 0);
  ASSERT_EQ(place(29 * QBFrequencyMapper::kBinWidth, store.dropD()), "0/1");
  EXPECT_EQ(QBFrequencyMatrix::buildSpektrum(store.dropD())[29 - 7], 0);
}

TEST(QBFrequencyMatrix, otherTablesHoldTheCoarseTones) {
  EXPECT_TRUE(std::ranges::equal(QBFrequencyMatrix::buildSpectrumSmall(),
                                 QBFrequencyMapper::bigD(nullptr)));
  const auto fine = QBFrequencyMatrix::buildSpectrumBig();
  ASSERT_EQ(fine.size(), 223U);
  EXPECT_EQ(std::ranges::count(fine, 0.0F), 223 - 37);
  for (std::size_t i = 0; i < fine.size(); ++i) {
    if (fine[i] == 0) continue;
    const float bin = static_cast<float>(30 + i) * QBFrequencyMapper::kBinWidth;
    EXPECT_NEAR(fine[i], bin, 1.4 * QBFrequencyMapper::kBinWidth);
  }
}

TEST(QBFrequency, hearsIntervalsUpwardsAndTheirComplements) {
  test::StandardStore store;
  const auto tone = [](float f) { return QBFrequency(f, 1, nullptr); };
  const QBFrequency a = tone(110);
  EXPECT_TRUE(a.isOctaveOf(tone(220)) && tone(220).isOctaveOf(tone(220)));
  EXPECT_FALSE(tone(220).isOctaveOf(a));
  EXPECT_TRUE(a.isQuintOf(tone(164.8F)) && a.isQuintOf(tone(146.8F)));
  EXPECT_FALSE(tone(164.8F).isQuintOf(a) || a.isQuintOf(tone(155.6F)));
  EXPECT_TRUE(a.isTerzOf(tone(138.6F)) && a.isSmallTerzOf(tone(130.8F)));
  EXPECT_TRUE(a.isSexteOf(tone(130.8F)) && a.isSekundeOf(tone(123.5F)));
  EXPECT_TRUE(a.isMajSeptimeOf(tone(116.5F)));
  EXPECT_FALSE(a.isQuartOf(tone(293.7F)));
  EXPECT_TRUE(a.isIntervalOld(5, tone(293.7F)) && tone(329.6F).isIntervalOld(5, a));
  EXPECT_FALSE(tone(329.6F).isIntervalOld(4, a));
}

TEST(QBTuning, findsTheOpenStringOfAFrequency) {
  test::StandardStore store;
  EXPECT_EQ(findBaseToneByFrequency(*store.standard(), QBFrequency(196.0F, 1, nullptr))->order(),
            3);
  EXPECT_EQ(findBaseToneByFrequency(*store.standard(), QBFrequency(207.6F, 1, nullptr)), nullptr);
}

}  // namespace
}  // namespace korvel
