// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/chords/Transcription.h"

#include "audio/MonoTrack.h"
#include "support/Guitar.h"
#include "support/StandardStore.h"
#include "support/Testing.h"

namespace korvel {
namespace {

TEST(Transcription, hearsAFileStepByStep) {
  const test::ScratchStore store;
  const std::string file = store.folder().file("a.wav");
  test::writeWav(file, test::play({{{}, 0.5}, {test::notesOf("x32010"), 30}}));
  const auto track = std::make_shared<MonoTrack>(file);
  track->startRecord(0);
  Transcription heard(track, kStandardPitches, {});
  int steps = 0;
  for (double last = 0; heard.step(); last = heard.progress(), ++steps)
    EXPECT_GE(heard.progress(), last);
  EXPECT_GE(steps, 10) << "short enough to show progress between them";
  EXPECT_EQ(heard.progress(), 1);
  EXPECT_FALSE(heard.step());
  ASSERT_EQ(heard.result().notes.size(), 5U);
  for (const precise::Note& note : heard.result().notes) EXPECT_GE(note.string, 1);
}

}  // namespace
}  // namespace korvel
