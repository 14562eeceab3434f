// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/filters/QBTabToneTrimmer.h"

#include "model/store/QBSettings.h"
#include "support/Testing.h"
#include "support/store/StandardStore.h"

namespace korvel {
namespace {

struct QBTabToneTrimmerTest : testing::Test {
  QBTabToneTrimmerTest() {
    m_db.selectedSettings()->setWorkDir(m_store.folder().file("work") + "/");
    QBHarmony* minor = m_db.createHarmony("m", 3);
    for (const int step : {0, 3, 4}) minor->addStep(step, step);
    m_db.loadHarmonies();
    m_db.addPattern("xxx-x-", 3);
    m_db.loadPatterns();
  }

  QBSong* song(const std::string& title) {
    return m_db.createSong(title, m_store.standard(), m_guitar, m_album);
  }
  std::string fileOf(const std::string& name) const {
    return test::readFile(m_store.folder().path() / "work" / "Tab" / name);
  }

  test::StandardStore m_store;
  QBTabMgr& m_db = QBTabMgr::db();
  QBInstrument* m_guitar = m_db.createInstrument(m_store.standard(), "guitar", true, true, 0.5F, 1);
  QBAlbum* m_album = m_db.createAlbum("Songs", false);
};

TEST_F(QBTabToneTrimmerTest, trimsInThreeStagesThatAreWrittenToFiles) {
  QBSong* source = song("AC/DC");
  test::addChord(source, "302210");
  test::addChord(source, "x0221b");
  QBSong* trimmed = QBTabToneTrimmer(m_album, source).trimmer();
  EXPECT_EQ(trimmed->title(), "AC/DC(trimmed)");
  EXPECT_FALSE(trimmed->hasTabulature());
  ASSERT_EQ(m_album->songs().size(), 2U) << "the songs of the stages are gone";
  EXPECT_EQ(source->allChords()[0]->hold()->toStringClean(), "012203");
  std::string fingerings;
  for (const auto& chord : trimmed->allChords())
    fingerings += chord->hold()->toStringClean() + ' ' + (chord->pattern() ? "struck " : "");
  EXPECT_EQ(fingerings, "012-0- struck -122-- ");
  EXPECT_NE(fileOf("AC_DC(NonChords).txt").find("AC/DC(1)"), std::string::npos);
  EXPECT_NE(fileOf("AC_DC(Contra).txt").find("AC/DC(1)(2)"), std::string::npos);
  EXPECT_NE(fileOf("AC_DC(RightHand).txt").find("AC/DC(1)(2)(3)"), std::string::npos);
}

}  // namespace
}  // namespace korvel
