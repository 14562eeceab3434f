// SPDX-License-Identifier: GPL-3.0-or-later
#include "audio/KeptSound.h"

#include "support/Testing.h"

namespace korvel {
namespace {

TEST(KeptSound, isReadWholeAsOftenAsItIsStarted) {
  KeptSound sound(48000);
  EXPECT_TRUE(sound.eof() && sound.readSamples().empty());
  sound.keep(std::vector<std::int16_t>(96000, 16384));
  for (int turn = 0; turn < 2; ++turn) {
    sound.startRecord(0);
    std::vector<float> read;
    for (auto samples = sound.readSamples(); !samples.empty(); samples = sound.readSamples())
      read.insert(read.end(), samples.begin(), samples.end());
    EXPECT_NEAR(static_cast<double>(read.size()), 88200, 16);
    EXPECT_NEAR(read[44100], 0.5F, 1e-3);
    EXPECT_TRUE(sound.eof());
    EXPECT_EQ(sound.progress(), 1);
  }
}

}  // namespace
}  // namespace korvel
