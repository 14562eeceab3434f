// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/layout/ChordGrip.h"

#include "model/book/QBLeftHandPattern.h"
#include "support/Testing.h"
#include "support/store/StandardStore.h"

namespace korvel {
namespace {

TEST(ChordGrip, hasFingersWhereThePatternStopsAString) {
  const test::StandardStore store;
  QBChord* chord = test::addChord(store.song("Waltz"), "x02210");
  chord->hold()->findToneByString(3)->setActive(false);
  chord->setLeftpattern(QBTabMgr::db().addLeftPattern("0132xx", 0));
  const ChordGrip grip(*chord);
  ASSERT_EQ(grip.tones.size(), 5U);
  EXPECT_EQ(grip.tones[0].finger, std::nullopt) << "an open string";
  EXPECT_EQ(grip.tones[1].finger, 2);
  EXPECT_EQ(grip.tones[2].finger, 3);
  EXPECT_FALSE(grip.isPlayed(3));
  EXPECT_EQ(grip.shorthand(), "x02x10");
  EXPECT_EQ(ChordGrip(*test::addChord(store.song("High"), "xxac9x")).shorthand(), "x-x-10-12-9-x");
}

}  // namespace
}  // namespace korvel
