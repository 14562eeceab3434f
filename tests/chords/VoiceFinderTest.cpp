// SPDX-License-Identifier: GPL-3.0-or-later
#include "chords/voices/VoiceFinder.h"

#include <algorithm>
#include <random>

#include "chords/BandEar.h"
#include "support/Testing.h"
#include "support/sound/PlayedBand.h"

namespace korvel::chords {
namespace {

constexpr std::size_t kPlacesOfBeat = 4;

/// Heard on sixteenths, without chords.
FoundVoice voiceOf(Voice voice, const test::BandSound& sound) {
  BandEar ear(true);
  ear.add(sound);
  const BandSound heard = ear.take();
  std::vector<VoicePlace> places;
  const double end = static_cast<double>(sound.size()) / 44100;
  for (std::size_t i = 0;; ++i) {
    const double time = static_cast<double>(i) * test::kSecondsOfBandBeat / kPlacesOfBeat;
    if (time > end - 0.01) break;
    const auto kind = i % kPlacesOfBeat == 0   ? VoicePlace::Kind::onBeat
                      : i % kPlacesOfBeat == 2 ? VoicePlace::Kind::onHalf
                                               : VoicePlace::Kind::between;
    places.push_back({time, kind, 0});
  }
  return findVoice(voice, heard, places, end);
}

/// The share of the beats in which their note sounds a sixteenth later, or none where there is
/// none.
double rightShare(const FoundVoice& found, const std::vector<int>& played) {
  double right = 0;
  for (std::size_t beat = 0; beat < played.size(); ++beat) {
    const std::size_t place = beat * kPlacesOfBeat + 1;
    const auto note = std::ranges::find_if(found.notes, [place](const VoiceNote& each) {
      return each.from <= place && place < each.to;
    });
    right += (note == found.notes.end() ? 0 : note->pitch) == played[beat];
  }
  return right / static_cast<double>(played.size());
}

TEST(VoiceFinder, hearsTheTuneAndTheBassOfABand) {
  test::BandScore score;
  for (int round = 0; round < 3; ++round)
    for (const auto& [tune, bass] : {std::pair{72, 36},
                                     {74, 36},
                                     {76, 43},
                                     {76, 43},
                                     {79, 41},
                                     {77, 41},
                                     {76, 33},
                                     {0, 40},
                                     {74, 38},
                                     {71, 43},
                                     {0, 31}}) {
      score.melody.push_back(tune);
      score.bass.push_back(bass);
    }
  const test::BandSound sound = test::playedBand(score);
  const FoundVoice melody = voiceOf(Voice::melody, sound), bass = voiceOf(Voice::bass, sound);
  EXPECT_TRUE(melody.isClear && bass.isClear);
  EXPECT_GT(rightShare(melody, score.melody), 0.8);
  EXPECT_GT(rightShare(bass, score.bass), 0.8);
  std::ranges::fill(score.melody, 0);
  EXPECT_FALSE(voiceOf(Voice::melody, test::playedBand(score)).isClear) << "nobody sings";
}

TEST(VoiceFinder, voicesHaveNames) {
  EXPECT_EQ(namesOf({Voice::bass, Voice::melody}), "bass,melody");
  EXPECT_EQ(voicesNamed("bass,melody,bass"), (Voices{Voice::bass, Voice::melody}));
  EXPECT_EQ(voicesNamed(""), Voices());
  EXPECT_EQ(voicesNamed("bass,,melody"), std::nullopt);
}

TEST(VoiceFinder, hearsNoVoiceInDrumsNoiseAndSilence) {
  test::BandSound drums(std::size_t{44100} * 20), noise(drums.size());
  for (unsigned i = 0; i < 40; ++i) test::addDrum(drums, i * test::kSecondsOfBandBeat, i + 1);
  std::minstd_rand random(3);
  for (float& sample : noise) sample = static_cast<float>(random() % 2000) / 2000 - 0.5F;
  for (const test::BandSound& sound : {drums, noise, test::BandSound(drums.size()), {}})
    for (const Voice voice : {Voice::melody, Voice::bass})
      EXPECT_FALSE(voiceOf(voice, sound).isClear) << nameOf(voice);
  noise[5] = std::numeric_limits<float>::quiet_NaN();
  voiceOf(Voice::melody, noise);
}

}  // namespace
}  // namespace korvel::chords
