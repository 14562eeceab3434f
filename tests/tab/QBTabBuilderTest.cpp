// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/text/QBTabBuilder.h"

#include "support/Testing.h"
#include "support/store/StandardStore.h"
#include "tab/filters/BestFingering.h"

namespace korvel {
namespace {

struct QBTabBuilderTest : testing::Test {
  QBTabBuilder builderOf(const char* frets) {
    return QBTabBuilder(test::addChord(m_song, frets), m_guitar, 0, 0);
  }

  test::StandardStore m_store;
  QBTabMgr& m_db = QBTabMgr::db();
  QBSong* m_song = m_store.song("song");
  QBInstrument* m_guitar = m_db.createInstrument(m_store.standard(), "guitar", true, true, 0.5F, 1);
};

// Candidates come in the order -5----, --9---, 0-----, each with a second tone here.
TEST_F(QBTabBuilderTest, aLowerPositionWinsUnlessItIsWider) {
  using Spans = std::vector<std::pair<int, int>>;
  const std::pair<Spans, std::size_t> cases[] = {
      {{{2, 4}, {2, 4}, {0, 2}}, 2},
      {{{2, 4}, {2, 4}, {0, 3}}, 0},  // wider
      {{{0, 3}, {2, 4}, {2, 4}}, 0},  // nor does a higher one displace a wider one
      {{{2, 2}, {1, 3}, {1, 1}}, 2},
  };
  for (const auto& [spans, expected] : cases) {
    QBTabBuilder builder = builderOf("xxxxx0");
    builder.findPositionsFrom(5, 0, 28);
    builder.addToAllChords(0, 3);
    for (std::size_t i = 0; i < spans.size(); ++i)
      std::tie(builder.m_chords()[i]->hold()->m_minFret, builder.m_chords()[i]->hold()->m_maxFret) =
          spans[i];
    EXPECT_EQ(builder.best(), builder.m_chords()[expected].get()) << testing::PrintToString(spans);
  }
}

TEST_F(QBTabBuilderTest, aBarreComesAfterWhatIsNone) {
  QBTabBuilder builder = builderOf("xxxxx0");
  builder.findPositionsFrom(5, 0, 28);
  for (const int string : {5, 3}) builder.m_chords()[0]->hold()->addTone(string, 5, 0.0);
  builder.m_chords()[1]->hold()->addTone(2, 5, 0.0);
  builder.m_chords()[2]->hold()->addTone(1, 7, 0.0);
  EXPECT_EQ(builder.best(), builder.m_chords()[1].get());
}

TEST_F(QBTabBuilderTest, candidatesCarryTheChordAndVanishWithTheBuilder) {
  QBChord* source = test::addChord(m_song, "xxxx00", 6);
  source->setBaseTone(4);
  source->setHarmony(m_db.createHarmony("m", 1));
  {
    QBTabBuilder builder(source, m_guitar, 0, 0);
    const QBChord* best = builder.build();
    EXPECT_EQ(best->fullHarmonyName(), "Em");
    EXPECT_EQ(best->duration(), 6);
    EXPECT_EQ(best->song()->title(), "TabBuilder");
    EXPECT_EQ(best->song()->album(), m_db.findAlbumByName("Builder"));
  }
  EXPECT_TRUE(m_db.albums().empty());
  EXPECT_EQ(m_db.context().fetch("QBSong").size(), 1U);
  EXPECT_EQ(m_db.context().fetch("QBTone").size(), 2U);
}

TEST_F(QBTabBuilderTest, movedTonesKeepAllButTheirPlace) {
  QBChord* chord = test::addChord(m_song, "xxxx0c");
  QBHold& hold = *chord->hold();
  QBTone* low = hold.findToneByString(4);
  low->setAmp(5.0);
  low->setDuration(7);
  low->setGroup(2);
  low->setActive(false);
  hold.setFretOfString(5, 0);  // leaves the index, and the span, at the twelfth fret
  BestFingering().execute(nullptr, chord, nullptr);
  EXPECT_EQ(test::fretsOf(*chord), "xxx-5x");
  EXPECT_EQ(hold.readSortedTones().size(), 2U);
  const QBTone* moved = hold.findTone(3, 4);
  ASSERT_NE(moved, nullptr);
  EXPECT_EQ(moved->amp(), 5.0);
  EXPECT_EQ(moved->duration(), 7);
  EXPECT_EQ(moved->group(), 2);
  EXPECT_FALSE(moved->isActive());
  EXPECT_FALSE(hold.findTone(4, 5)->hasGroup());
  EXPECT_EQ(hold.m_minFret, 4);
  EXPECT_EQ(hold.m_maxFret, 5);
}

}  // namespace
}  // namespace korvel
