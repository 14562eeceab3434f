// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/store/QBTabMgr.h"

#include <limits>

#include "model/book/QBLeftHandPattern.h"
#include "model/book/QBRightHandPattern.h"
#include "model/instruments/QBSpectrum.h"
#include "model/instruments/QBString.h"
#include "model/recorded/QBBlock.h"
#include "model/store/QBSettings.h"
#include "support/Testing.h"
#include "support/store/StandardStore.h"

namespace korvel {
namespace {

struct QBTabMgrTest : testing::Test {
  static QBTabMgr& db() { return QBTabMgr::db(); }
  static std::size_t count(std::string_view entity) { return db().context().fetch(entity).size(); }
  static void reopen() {
    db().save();
    QBTabMgr::clearDb();
  }

  test::StandardStore m_store;
};

TEST_F(QBTabMgrTest, patternsAreWrittenFromTheHighestString) {
  std::string struck;
  for (const QBString* row : db().addPattern("xxx-x-", 3)->strings()) {
    struck += std::to_string(row->order()) + ' ';
    EXPECT_EQ(row->tuning(), nullptr);
    EXPECT_EQ(row->lefthandpattern(), nullptr);
  }
  EXPECT_EQ(struck, "1 3 4 5 ");
  const int most = std::numeric_limits<int>::max();
  EXPECT_EQ(db().addPattern("xxx-x-", most)->weight(), most) << "stored numbers may be any";
  std::string fingers;
  for (const QBString* row : db().addLeftPattern("32300x", 0)->strings())
    fingers += std::to_string(row->order()) + ':' + std::to_string(row->baseTone()) + ' ';
  EXPECT_EQ(fingers, "1:0 2:0 3:3 4:2 5:3 ");
  EXPECT_THROW(db().addPattern("xxx", 0), std::invalid_argument);
}

TEST_F(QBTabMgrTest, tablesOfPatternsAreComplete) {
  db().initRightHandPatterns();
  db().initLeftHandPatterns();
  db().loadPatterns();
  db().loadLeftPatterns();
  ASSERT_EQ(db().patterns().size(), 27U);
  ASSERT_EQ(db().lefthandpatterns().size(), 10U);
  const auto rows = [&](std::size_t i) { return db().patterns()[i]->strings().size(); };
  EXPECT_EQ(rows(5), rows(10)) << "one stands twice";
  std::size_t struck = 0;
  for (std::size_t i = 0; i < 27; ++i) struck += rows(i);
  EXPECT_EQ(struck, 91U);
  EXPECT_EQ(db().findLeftHandByIndex(9)->order(), 1);
  EXPECT_THROW(db().findLeftHandByIndex(10), std::out_of_range);
}

TEST_F(QBTabMgrTest, objectsKnowTheirStoreUntilItIsClosed) {
  const platform::Ref<QBSong> song = m_store.song("Song");
  EXPECT_EQ(&QBTabMgr::of(*song), &db());
  reopen();
  EXPECT_THROW(song->createChord(), std::logic_error);
}

TEST_F(QBTabMgrTest, deletingASongLeavesMeasuresAndBlocksForTheNextOpening) {
  QBSong* song = db().createSong("Song", nullptr, nullptr, db().createAlbum("Album", false));
  db().createMeasure(song, 4, 4);
  QBChord* chord = test::addChord(song, "x02210");
  db().createSample(db().createBlock(chord), 7);
  song->setFromChord(chord);
  reopen();
  const platform::Ref<QBSong> saved = db().findAlbumByIndex(0)->findSongByIndex(0);
  db().deleteSong(saved);
  db().deleteSong(nullptr);
  EXPECT_EQ(count("QBChord") + count("QBHold") + count("QBTone"), 0U);
  EXPECT_EQ(count("QBMeasure"), 1U);
  EXPECT_EQ(count("QBBlock"), 1U);
  EXPECT_EQ(saved->title(), "Song") << "a deleted song stays readable";
  ASSERT_NE(saved->fromChord(), nullptr) << "and so do the ends of its loop";
  EXPECT_EQ(saved->fromChord()->position(), 1);
  reopen();
  EXPECT_EQ(count("QBMeasure") + count("QBBlock") + count("QBSample"), 0U);
}

TEST_F(QBTabMgrTest, deletedInstrumentLeavesItsSpectraForTheNextOpening) {
  db().createInstrument(m_store.standard(), "Guitar", true, true, 0.5F, 1);
  reopen();
  db().deleteInstrumentAtIndex(0);
  EXPECT_EQ(db().selectedInstrument(), nullptr);
  EXPECT_EQ(count("QBSpectrum"), 6U);
  reopen();
  EXPECT_EQ(count("QBSpectrum"), 0U);
  EXPECT_THROW(db().deleteInstrumentAtIndex(0), std::out_of_range);
}

TEST_F(QBTabMgrTest, findsTheFirstThatMatches) {
  QBAlbum* first = db().createAlbum("Album", false);
  db().createAlbum("Album", false);
  EXPECT_EQ(db().findAlbumByName("Album"), first);
  EXPECT_EQ(db().findAlbumByName("album"), nullptr);
  EXPECT_EQ(db().findTuningByOrder(7), nullptr);
  db().createInstrument(m_store.standard(), "a", false, true, 0.5F, 1);
  QBInstrument* active = db().createInstrument(m_store.standard(), "b", true, true, 0.5F, 1);
  db().createInstrument(m_store.standard(), "c", true, true, 0.5F, 1);
  EXPECT_EQ(db().selectedInstrument(), active);
}

TEST_F(QBTabMgrTest, storeWithoutSettingsSelectsNothing) {
  EXPECT_TRUE(db().isInitialized());
  EXPECT_EQ(db().selectedSettings()->waveDirectory(), "./Waves/");
  EXPECT_EQ(db().selectedSettings()->tempDirectory(), "./Temp/");
  EXPECT_EQ(db().selectedSettings()->tabDirectory(), "./Tab/");
  EXPECT_EQ(db().selectedSettings()->xmlDirectory(), "./Xml/");
  db().deleteInstance(db().selectedSettings());
  EXPECT_FALSE(db().isInitialized());
  EXPECT_EQ(db().selectedSettings(), nullptr);
  EXPECT_EQ(db().selectedTuning(), nullptr);
  EXPECT_EQ(QBInstrument::largeToneOfStringS(3), 0);
}

}  // namespace
}  // namespace korvel
