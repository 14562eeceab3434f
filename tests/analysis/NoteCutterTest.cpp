// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/instrument/NoteCutter.h"

#include "support/Testing.h"
#include "support/sound/Guitar.h"

namespace korvel {
namespace {

using test::Strum;

/// Each stretch as its note, or "?", and the second in which it begins.
std::string heardIn(const std::vector<std::int16_t>& samples) {
  NoteCutter cutter;
  for (std::size_t begin = 0; begin < samples.size(); begin += 10000)
    cutter.add(
        std::span(samples).subspan(begin, std::min<std::size_t>(10000, samples.size() - begin)));
  std::string heard;
  for (const auto& [begin, end, loudest] : cutter.stretches()) {
    const auto note = singleNote(std::span(samples).subspan(begin, end - begin));
    heard +=
        (note ? std::to_string(*note) : "?") + '@' + std::to_string((begin + 4410) / 44100) + ' ';
  }
  return heard;
}

const Strum kSilence{{}, 1.0};

TEST(NoteCutterTest, findsEveryNoteBetweenSilences) {
  std::vector<Strum> strums{kSilence};
  std::string expected;
  for (int midi = 38; midi <= 76; midi += 2) {
    expected += std::to_string(midi) + '@' + std::to_string(1 + (midi - 38)) + ' ';
    strums.insert(strums.end(), {{{midi}, 1.0}, kSilence});
  }
  EXPECT_EQ(heardIn(test::play(strums)), expected);
}

TEST(NoteCutterTest, noiseAndChordsAreNoNotes) {
  auto samples = test::play({kSilence, {{45}, 2.0}, kSilence, {{40, 47, 56}, 2.0}, kSilence});
  unsigned noise = 1;
  for (auto& sample : samples) {
    noise = noise * 1664525 + 1013904223;
    sample = static_cast<std::int16_t>(sample + static_cast<int>(noise >> 25) - 64);
  }
  EXPECT_EQ(heardIn(samples), "45@1 ?@4 ");
  EXPECT_EQ(heardIn(std::vector<std::int16_t>(100000)), "");
  EXPECT_EQ(heardIn({}), "");
}

TEST(NoteCutterTest, stringThatIsStruckBeforeTheLastOneIsMutedIsANoteOfItsOwn) {
  EXPECT_EQ(heardIn(test::play({{{45}, 3.0}, {{57}, 2.0}, kSilence, {{45}, 0.1}, kSilence})),
            "45@0 57@3 ")
      << "and a tenth of a second is none";
}

}  // namespace
}  // namespace korvel
