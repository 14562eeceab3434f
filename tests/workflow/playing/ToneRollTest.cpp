// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/playing/ToneRoll.h"

#include "support/Testing.h"
#include "support/songs/BeatSong.h"
#include "support/store/StandardStore.h"

namespace korvel {
namespace {

struct ToneRollTest : testing::Test {
  /// A line for each tone: chord, pitch, steps.
  std::string drawn() const {
    std::string text;
    const ToneRoll roll(*m_song);
    for (const auto& tone : roll.tones())
      text += std::to_string(tone.chord) + ":" + std::to_string(tone.pitch) + "*" +
              std::to_string(tone.steps) + (tone.active ? " " : "() ");
    return text;
  }

  QBTone* add(const char* frets, int string, int duration) {
    QBTone* tone = test::addChord(m_song, frets)->hold()->findToneByString(string);
    tone->setDuration(duration);
    return tone;
  }

  test::StandardStore m_store;
  QBSong* m_song = m_store.song("Waltz");
};

TEST_F(ToneRollTest, tonesRingUntilTheNoteIsStruckAgain) {
  add("xxxxx0", 5, 8);
  add("xxxx5x", 4, 1)->setActive(false);
  add("xxx2xx", 3, 0);
  add("0xxxxx", 0, 9);
  EXPECT_EQ(drawn(), "0:64*1 1:64*1() 2:57*2 3:40*1 ")
      << "string 4 at fret 5 is the same note; nothing rings beyond the end";
  m_song->setTuning(m_store.dropD());
  EXPECT_NE(drawn().find("3:38*1"), std::string::npos);
}

TEST_F(ToneRollTest, tonesOnBeatsLastAsLongAsTheyAreWritten) {
  test::beatSong(m_song, "3/4 x0xxxx q | x0xxx0 q_1h. xxxxx3 q ~q |");
  EXPECT_EQ(drawn(), "0:45*12 1:45*36 1:64*12 2:67*24 ");
  const ToneRoll roll(*m_song);
  EXPECT_EQ(roll.begin(2), 24);
  EXPECT_EQ(roll.chordAt(30), 2);
  EXPECT_EQ(roll.chordAt(99), 3);
  EXPECT_EQ(roll.bars(), (std::vector{0, 1}));
  EXPECT_EQ(roll.numberOfFirstBar(), 0) << "a pick-up";
  EXPECT_EQ(roll.beats(), (std::vector{24, 36}));
  EXPECT_EQ(roll.firstSounding(3)->chord, 0) << "the run may begin early";
}

TEST_F(ToneRollTest, loudnessIsRelativeToTheLoudest) {
  add("0xxxxx", 0, 1)->setAmp(2e8);
  add("1xxxxx", 0, 1)->setAmp(2e7);
  add("2xxxxx", 0, 1)->setAmp(0);
  const ToneRoll roll(*m_song);
  EXPECT_DOUBLE_EQ(roll.tones()[0].loudness, 1);
  EXPECT_DOUBLE_EQ(roll.tones()[1].loudness, 0.5) << "20 of 40 dB";
  EXPECT_DOUBLE_EQ(roll.tones()[2].loudness, 0);
}

TEST_F(ToneRollTest, whatRingsOnIsFoundFromAnyChord) {
  add("xxxxx3", 5, 6);
  for (int i = 0; i < 20; ++i) add("x0xxxx", 1, 1);
  const ToneRoll roll(*m_song);
  EXPECT_EQ(roll.firstSounding(5)->pitch, 67);
  EXPECT_EQ(roll.endSounding(8) - roll.firstSounding(8), 6) << "the run may begin early";
  EXPECT_EQ(roll.endSounding(8)->chord, 8);
}

}  // namespace
}  // namespace korvel
