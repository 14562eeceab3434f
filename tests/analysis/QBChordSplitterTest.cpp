// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/shelf/QBChordSplitter.h"

#include <initializer_list>

#include "support/StandardStore.h"
#include "support/Testing.h"

namespace korvel {
namespace {

struct QBChordSplitterTest : testing::Test {
  QBChordSplitter splitterOf(std::initializer_list<const char*> frets) {
    QBSong* song = m_store.song("song");
    for (const char* chord : frets) test::addChord(song, chord);
    return QBChordSplitter(song, 0, static_cast<int>(frets.size()));
  }

  /// Every entry: its key, and of its group the fret, the first chord and the length.
  static std::string filed(const QBChordSplitter& splitter) {
    std::string text;
    for (const auto& [key, group] : splitter.m_groups)
      text += '[' + key + "]=" + std::to_string(group->m_fret) + '@' +
              std::to_string(group->m_pos) + '+' + std::to_string(group->m_dur) + ' ';
    return text;
  }

  std::string built(std::initializer_list<const char*> frets) {
    QBChordSplitter splitter = splitterOf(frets);
    splitter.buildGroups();
    return filed(splitter);
  }

  test::StandardStore m_store;
};

TEST_F(QBChordSplitterTest, runsOfAFretAreGroupsAndAChangePassesOverTwoChords) {
  EXPECT_EQ(built({"5xxxxx", "5xxxxx", "7xxxxx", "7xxxxx", "7xxxxx"}), "[ 0,   0]=5@0+2 ");
  EXPECT_EQ(built({"5xxxxx", "7xxxxx", "7xxxxx", "7xxxxx", "7xxxxx", "7xxxxx"}), "[ 0,   0]=5@0+3 ")
      << "the run from the fourth chord on lengthens the group that is still open";
  EXPECT_EQ(built({"5xxxxx", "xxxxxx", "7xxxxx", "7xxxxx"}), "[ 0,   0]=5@0+2 ")
      << "the silent chord ends the run unseen by the next, which goes on with the group";
  EXPECT_EQ(built({"5xxxxx", "xxxxxx", "xxxxxx", "7xxxxx", "7xxxxx"}),
            "[ 0,   0]=5@0+1 [ 0,   3]=7@3+2 ");
  EXPECT_EQ(built({"55xxxx", "5xxxxx"}), "[ 0,   0]=5@0+2 ")
      << "an open group takes the next string";
}

TEST_F(QBChordSplitterTest, groupsAreFiledUnderEveryPositionTheyCover) {
  QBChordSplitter splitter =
      splitterOf({"5xxxxx", "5x3xxx", "xx3xxx", "xxxxxx", "xxxxxx", "xx3xxx"});
  splitter.buildGroups();
  EXPECT_EQ(filed(splitter), "[ 0,   0]=5@0+2 [ 2,   1]=3@1+2 [ 2,   5]=3@5+1 ");
  const auto dependents = splitter.collectDependentGroups(*splitter.m_groups.at(" 0,   0"));
  ASSERT_EQ(dependents.size(), 1U);
  EXPECT_EQ(QBChordSplitter::computeMaximum(dependents), 3);
  splitter.fillUp();
  const std::string covered =
      "[ 0,   0]=5@0+2 [ 0,   1]=5@0+2 [ 2,   1]=3@1+2 [ 2,   2]=3@1+2 [ 2,   5]=3@5+1 ";
  EXPECT_EQ(filed(splitter), covered);
  splitter.fillUp();
  EXPECT_EQ(filed(splitter), covered);
}

TEST_F(QBChordSplitterTest, generatesAnEmptySong) {
  const QBSong* song = splitterOf({"5xxxxx", "5x3xxx"}).split();
  EXPECT_EQ(song->title(), "Splitted");
  EXPECT_EQ(song->tuning(), m_store.standard());
  EXPECT_TRUE(song->chords().empty());
  EXPECT_EQ(splitterOf({"5xxxxx"}).toMatrix(), nullptr);
  EXPECT_EQ(QBTabMgr::db().context().fetch("QBSong").size(), 3U) << "two sources, one result";
}

}  // namespace
}  // namespace korvel
