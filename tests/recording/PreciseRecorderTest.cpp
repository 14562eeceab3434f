// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/PreciseRecorder.h"

#include "analysis/chords/PreciseAnalyser.h"
#include "audio/KeptSound.h"
#include "support/Guitar.h"
#include "support/StandardStore.h"
#include "support/Testing.h"

namespace korvel {
namespace {

TEST(PreciseRecorder, makesASongOfSoundThatWasKept) {
  const test::StandardStore store;
  QBAlbum* album = QBTabMgr::db().createAlbum("A", false);
  QBSong* target = album->createSong("T");
  // Played an octave up, and kept as if half as many samples made a second.
  const auto sound = std::make_shared<KeptSound>(22050);
  for (const std::string shape : {"x32010", "xx0232"}) {
    auto notes = test::notesOf(shape);
    for (int& note : notes) note += 12;
    const auto samples = test::play({{notes, 0.75}});
    for (std::size_t i = 0; i < samples.size(); i += 700)
      sound->keep(std::span(samples).subspan(i, std::min<std::size_t>(700, samples.size() - i)));
  }
  const auto analyser =
      std::make_shared<PreciseAnalyser>(sound, store.standard(), precise::Settings{});
  PreciseRecorder recorder(analyser, target, album);
  EXPECT_EQ(recorder.nextChord(), nullptr) << "not before the start";
  recorder.startWithoutTimer("", 0);
  while (!analyser->atEnd()) recorder.nextChord();
  recorder.stopWithoutTimer();
  EXPECT_EQ(album->songs().size(), 1U);
  const std::string shapes = test::fretsOf(*target);
  EXPECT_EQ(shapes.find("x32010 x32010 x32010 "), 0U) << shapes;
  EXPECT_NE(shapes.find("xx0232 xx0232 xx0232 "), std::string::npos) << shapes;
}

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
