// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/shelf/QBGroup.h"
#include "arrange/shelf/QBGroupBuilder.h"
#include "arrange/shelf/QBGroupToString.h"
#include "support/StandardStore.h"
#include "support/Testing.h"

namespace korvel {
namespace {

struct ChordGroupsTest : testing::Test {
  /// A chord for each letter, with a harmony of its own; "-" for one without.
  QBSong* songOf(std::string_view harmonies) {
    QBSong* song = m_store.song("song");
    for (const char letter : harmonies) {
      QBChord* chord = test::addChord(song, "x02210");
      if (letter == '-') continue;
      chord->setBaseTone(letter - 'A');
      chord->setHarmony(m_major);
    }
    return song;
  }

  test::StandardStore m_store;
  QBHarmony* m_major = QBTabMgr::db().createHarmony("", 1);
};

struct Case {
  const char* name;
  const char* harmonies;
  const char* groups;  // number and positions
  const char* starts;  // position and first number of what began a group
};

const Case kCases[] = {
    {"a part that comes again", "ABCABC", "1: 1 2 3 ", "1=1 "},
    {"two chords are no part", "ABCABD", "", "1=1 3=2 6=3 "},
    {"numbers have no gaps", "EFEFABCABC", "1: 5 6 7 ", "1=1 5=2 "},
    {"chords without a name", "-AB-CAB-C", "1: 2 3 5 ", "2=1 "},
    {"nothing comes again", "ABCD", "", "1=1 2=2 3=3 4=4 "},
    {"a single chord", "A", "", "1=1 "},
    {"an empty song", "", "", ""},
    // Once the second chord has matched, those that do not are passed over, and the second-to-last
    // is still looked at.
    {"scanning goes on after a match", "AAABCDD", "1: 1 2 6 ", "1=1 4=2 5=3 "},
    {"the last chord joins no group", "ABABAA", "", "1=1 5=2 6=3 "},
    // The first B that is skipped belongs to the A's; the start itself is then among its later
    // occurrences and everything after it matches.
    {"an older chord takes the first place", "ABCABCDDBEFG", "1: 1 2 3 2: 9 10 11 ",
     "1=1 7=2 8=3 9=4 12=5 "},
};

TEST_F(ChordGroupsTest, partsThatComeAgainAreFound) {
  for (const Case& test : kCases) {
    QBSong* song = songOf(test.harmonies);
    QBGroupBuilder builder(nullptr, song);
    builder.build();
    std::string groups, starts;
    for (const auto& group : builder.m_groups()) {
      groups += std::to_string(group->m_counter) + ": ";
      for (const auto& chord : group->m_chords()) groups += std::to_string(chord->position()) + ' ';
    }
    for (const auto& chord : song->allChords())
      if (chord->hasGroupNumber())
        starts +=
            std::to_string(chord->position()) + '=' + std::to_string(chord->groupNumber()) + ' ';
    EXPECT_EQ(groups, test.groups) << test.name;
    EXPECT_EQ(starts, test.starts) << test.name;
  }
}

TEST_F(ChordGroupsTest, numbersAreWrittenAsALine) {
  QBSong* song = songOf("AAAAAA");
  for (int i = 0; const int number : {1, 1, 2, 0, 2, 2}) {
    if (number) song->allChords()[static_cast<std::size_t>(i)]->setGroupNumber(number);
    ++i;
  }
  QBGroupToString line;
  song->iterate(line);
  EXPECT_EQ(line.m_output(), "||-1-----||-2-||-2-----");
}

}  // namespace
}  // namespace korvel
