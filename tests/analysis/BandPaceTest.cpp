// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/bands/BandPace.h"

#include <gtest/gtest.h>

#include <memory>

#include "analysis/chords/Transcription.h"
#include "audio/KeptSound.h"
#include "support/sound/PlayedBand.h"

namespace korvel {
namespace {

/// Beats of half a second or so, of which the bass drum plays every so many; something lighter
/// plays on all.
bool isTwiceAsFast(int every, double secondsOfBeat) {
  rhythm::Reading reading;
  std::vector<chords::Stroke> strokes;
  for (int beat = 0; beat < 32; ++beat) {
    const double time = beat * secondsOfBeat;
    reading.beats.push_back(time);
    strokes.push_back({time - 0.02, 1, beat % every == 1 ? 0.9F : 0.1F});
  }
  return isReadTwiceAsFast(strokes, reading);
}

TEST(BandPace, isTwiceAsFastWhereTheBassDrumGoesRoundInFourBeats) {
  EXPECT_TRUE(isTwiceAsFast(4, 0.45));
  EXPECT_FALSE(isTwiceAsFast(2, 0.45));
  EXPECT_FALSE(isTwiceAsFast(1, 0.45)) << "four to the floor";
  EXPECT_FALSE(isTwiceAsFast(3, 0.45)) << "a waltz";
  EXPECT_FALSE(isTwiceAsFast(4, 0.6)) << "half of it would be too slow";
  EXPECT_FALSE(isReadTwiceAsFast({}, {}));
}

TEST(BandPace, progressNeverGoesBackWhereABandIsReadAgain) {
  test::BandScore score;
  for (int beat = 0; beat < 32; ++beat) {
    score.bass.push_back(beat % 4 > 0 ? 0 : beat % 8 > 0 ? 43 : 36);
    score.melody.push_back(beat % 2 > 0 ? 72 : 76);
  }
  test::BandSound sound = test::playedBand(score);
  for (int beat = 0; beat < 32; beat += 4)
    test::addTone(sound, beat * test::kSecondsOfBandBeat, 31, 0.5);
  const auto source = std::make_shared<KeptSound>(44100);
  source->keep(test::samplesOf(sound));
  source->startRecord(1);
  HearingSettings settings = settingsOfFrontEnds();
  settings.players = Players::band;
  Transcription transcription(source, kStandardPitches, settings);
  double before = 0;
  while (transcription.step()) {
    EXPECT_GE(transcription.progress(), before);
    before = transcription.progress();
  }
  EXPECT_NEAR(transcription.takeRhythm().reading.tempo(), 60, 1);
}

}  // namespace
}  // namespace korvel
