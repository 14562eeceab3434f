// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/shelf/QBChordSplitter.h"

#include "support/Script.h"
#include "support/Testing.h"
#include "support/store/StandardStore.h"

namespace korvel {
namespace {

/// Every entry: its key, and of its group the fret, the first chord and the length.
std::string filed(const QBChordSplitter& splitter) {
  std::string text;
  for (const auto& [key, group] : splitter.m_groups)
    text += '[' + key + "]=" + std::to_string(group->m_fret) + '@' + std::to_string(group->m_pos) +
            '+' + std::to_string(group->m_dur) + ' ';
  return text;
}

TEST(QBChordSplitter, splitsAsWritten) {
  const test::StandardStore store;
  const auto of = [&](const std::function<std::string(QBChordSplitter&)>& ask) {
    return [&store, ask](const test::Words& words) {
      QBSong* song = store.song("song");
      for (const std::string& frets : words) test::addChord(song, frets);
      QBChordSplitter splitter(song, 0, static_cast<int>(words.size()));
      splitter.buildGroups();
      return ask(splitter);
    };
  };
  test::expectScript(
      "analysis/splitter.txt",
      {{"groups", of(&filed)},
       {"filled", of([](QBChordSplitter& splitter) {
          splitter.fillUp();
          const std::string once = filed(splitter);
          splitter.fillUp();
          return filed(splitter) == once ? once : "another each time";
        })},
       {"dependents",  // of the first group: how many, and the most chords
        of([](QBChordSplitter& splitter) {
          const auto found = splitter.collectDependentGroups(*splitter.m_groups.begin()->second);
          return std::to_string(found.size()) + ' ' +
                 std::to_string(QBChordSplitter::computeMaximum(found));
        })},
       {"split", of([](QBChordSplitter& splitter) {
          const QBSong* song = splitter.split();
          EXPECT_EQ(splitter.toMatrix(), nullptr);
          return song->title() + ": " + test::fretsOf(*song) + song->tuning()->descr();
        })}});
}

}  // namespace
}  // namespace korvel
