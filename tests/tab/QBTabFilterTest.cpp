// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/filters/QBTabFilter.h"

#include "support/StandardStore.h"
#include "support/Testing.h"

namespace korvel {
namespace {

struct Played {
  const char* frets;
  double amp;
  int duration = 1;
};

struct QBTabFilterTest : testing::Test {
  QBSong* play(const std::vector<Played>& chords) {
    QBSong* song = m_store.song("song");
    for (const Played& played : chords) {
      QBChord* chord = test::addChord(song, played.frets, played.duration);
      for (QBTone* tone : chord->hold()->tones()) tone->setAmp(played.amp);
    }
    return song;
  }

  /// One chord a word: its duration, and string:duration of each of its tones.
  static std::string drawn(QBSong* song) {
    std::string text;
    for (const auto& chord : song->allChords()) {
      text += ' ' + std::to_string(chord->duration());
      for (const QBTone* tone : chord->hold()->tones())
        text += '/' + std::to_string(tone->string()) + ':' + std::to_string(tone->duration());
    }
    return text;
  }

  static std::string picked(QBSong* song) { return drawn(QBTabFilter(song, song).filter()); }

  test::StandardStore m_store;
};

// Tones are created two sixteenths long, and those of the last chord keep that.
TEST_F(QBTabFilterTest, aToneThatFadesBecomesOneLongTone) {
  EXPECT_EQ(picked(play({{"xx3xxx", 0.9}, {"xx3xxx", 0.8}, {"xx3xxx", 0.6}, {"xx3xxx", 0.7}})),
            " 3/2:3 1 1 1/2:2");
  EXPECT_EQ(picked(play({{"xx3xxx", 0.9}, {"xx3xxx", 0.9}, {"xx4xxx", 0.8}, {"x3xxxx", 0.7}})),
            " 1/2:1 1/2:1 1/2:1 1/1:2")
      << "neither an equal one nor another position";
  EXPECT_EQ(picked(play({{"xx3xxx", 0.9}, {"xxxxxx", 0.0}, {"xx3xxx", 0.5}})), " 2/2:1 1 1/2:2")
      << "nor one after a rest";
  EXPECT_EQ(picked(play({{"x03xxx", 0.9, 8}, {"x03xxx", 0.8}, {"x0xxxx", 0.7}})), " 4/1:3/2:2 1 1")
      << "the chord itself is as long as its shortest tone, and rests after it lengthen it";
}

TEST_F(QBTabFilterTest, silencedTonesTakeNoPart) {
  QBSong* song = play({{"x03xxx", 0.9}, {"x03xxx", 0.8}, {"x0xxxx", 0.7}});
  song->allChords()[0]->hold()->findToneByString(2)->setActive(false);
  song->allChords()[1]->hold()->findToneByString(1)->setActive(false);
  EXPECT_EQ(picked(song), " 1/1:1/2:2 1/1:2/2:1 1/1:2");
}

TEST_F(QBTabFilterTest, emptyChordsLengthenTheOneBefore) {
  EXPECT_EQ(picked(play({{"xxxxxx", 0, 5},
                         {"x0xxxx", 1},
                         {"xxxxxx", 0, 7},
                         {"xxxxxx", 0},
                         {"x3xxxx", 1},
                         {"xxxxxx", 0}})),
            " 5 3/1:1 7 1 2/1:1 1");
  EXPECT_EQ(picked(play({{"xxxxxx", 0}, {"x3xxxx", 1, 4}})), " 1 4/1:2");
}

TEST_F(QBTabFilterTest, oneChordStaysAndNoChordIsAnError) {
  EXPECT_EQ(picked(play({{"x3xxxx", 1, 4}})), " 4/1:2");
  QBSong* empty = m_store.song("empty");
  EXPECT_THROW(QBTabFilter(empty, empty).filter(), std::out_of_range);
}

}  // namespace
}  // namespace korvel
