// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/Blocks.h"

#include "support/Testing.h"

namespace korvel::precise {
namespace {

constexpr double kBlockSeconds = kBlockSamples / 44100.0;
constexpr std::size_t kFrames = 100;
constexpr std::size_t kSamples = kFrames * 512;

/// from and to count in blocks.
Note note(int pitch, double from, double to, int string, int fret) {
  return {.onset = from * kBlockSeconds,
          .end = to * kBlockSeconds,
          .pitch = pitch,
          .string = string,
          .fret = fret};
}

/// A recording of three blocks and an eighth, in which all pitches decay.
Analysis decaying() {
  Analysis analysis;
  analysis.frames = kFrames;
  analysis.ref = 0.25;
  analysis.activations = FrameTable(kFrames, Analysis::kPitches);
  for (std::size_t t = 0; t < kFrames; ++t)
    std::ranges::fill(analysis.activations.row(t), 1 - 0.005F * static_cast<float>(t));
  return analysis;
}

std::vector<BlockTones> heard(const std::vector<Note>& notes) {
  return blocksOf(decaying(), notes, kSamples, kStandardPitches, {});
}

std::string shapesOf(const std::vector<BlockTones>& blocks) {
  std::string text;
  for (const BlockTones& tones : blocks) {
    std::string shape(6, 'x');
    for (const BlockTone& tone : tones)
      shape[static_cast<std::size_t>(tone.string)] = static_cast<char>('0' + tone.fret);
    text += shape + ' ';
  }
  return text;
}

TEST(Blocks, haveTheTonesThatCoverThem) {
  const std::vector<Note> notes{
      note(40, 0.72, 1.28, 0, 0),                           // too short by a frame in both blocks
      note(45, 0.6, 1.4, 1, 0),                             // in both
      note(50, 2.1, 2.27, 2, 0), note(50, 2.5, 2.67, 2, 0)  // together long enough
  };
  EXPECT_EQ(shapesOf(heard(notes)), "x0xxxx x0xxxx xx0xxx xxxxxx ");
  // What the recording has of its last block is what counts.
  EXPECT_EQ(shapesOf(heard({note(40, 3.05, 3.2, 0, 0)})), "xxxxxx xxxxxx xxxxxx 0xxxxx ");
  EXPECT_TRUE(blocksOf({}, {}, 0, kStandardPitches, {}).empty());
}

TEST(Blocks, haveOneToneAString) {
  const std::vector<Note> notes{note(64, 0.0, 0.4, 5, 0), note(65, 0.4, 1.0, 5, 1),
                                note(60, 0.0, 0.3, 4, 1), note(60, 0.3, 0.7, 3, 5),
                                note(55, 0.7, 1.0, 3, 0), note(40, 0.0, 1.0, -1, -1)};
  EXPECT_EQ(shapesOf(heard(notes)), "xx5551 xxxxxx xxxxxx xxxxxx ")
      << "a note without a place is nowhere, one on two strings where it is longer,"
         " and the E and the G below it go to strings that are free";
  EXPECT_EQ(shapesOf(heard({note(40, 0.0, 0.6, 0, 0), note(42, 0.6, 1.0, 0, 2)})).substr(0, 7),
            "0xxxxx ")
      << "no other string is so low";
}

TEST(Blocks, tellWhereANoteIsStruck) {
  // From late in the first block on; again early in the third, and at the end of it.
  const std::vector<Note> notes{note(64, 0.9, 2.0, 5, 0), note(64, 2.1, 2.9, 5, 0),
                                note(64, 2.9, 3.1, 5, 0), note(45, 0.0, 2.9, 1, 0)};
  std::string struck;
  for (const BlockTones& tones : heard(notes)) {
    for (const BlockTone& tone : tones) struck += tone.struck ? '!' : '.';
    struck += ' ';
  }
  EXPECT_EQ(struck, "! .! .! ! ");
}

TEST(Blocks, areAsLoudAsTheirLoudestFrame) {
  const auto blocks = heard({note(64, 0.5, 2.0, 5, 0)});
  constexpr double kLoudest = 32768.0 * 16384 * 0.54 * 0.25;
  EXPECT_NEAR(blocks[0][0].amplitude, kLoudest * std::pow(1 - 0.005 * 16, 2.5), kLoudest * 1e-5);
  EXPECT_NEAR(blocks[1][0].amplitude, kLoudest * std::pow(1 - 0.005 * 32, 2.5), kLoudest * 1e-5);
}

}  // namespace
}  // namespace korvel::precise
