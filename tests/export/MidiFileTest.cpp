// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/MidiFile.h"

#include "export/SongMidi.h"
#include "support/Testing.h"
#include "support/store/StandardStore.h"

namespace korvel {
namespace {

std::string hexOf(const std::string& bytes) {
  std::string text;
  for (const char byte : bytes) {
    constexpr char kDigits[] = "0123456789abcdef";
    const auto value = static_cast<unsigned char>(byte);
    text += {kDigits[value / 16], kDigits[value % 16]};
  }
  return text;
}

TEST(MidiFile, isWrittenByteByByte) {
  MidiSequence sequence;
  sequence.title = "\tA\n";
  sequence.division = 9600;
  sequence.quarterSeconds = 0.5;
  sequence.meter = {12, 8};
  sequence.notes = {{200, 100, 64, 127, 0}, {0, 200, 40, 50, 20}, {0, 20000, 128, 50, 20}};
  EXPECT_EQ(hexOf(midiFile(sequence)),
            "4d546864000000060001000225804d54726b00000018"
            "00ff030141"
            "00ff510307a120"
            "00ff58040c031808"
            "00ff2f00"
            "4d54726b00000022"
            "00ff0306477569746172"
            "00c019"
            "00902832"
            "8148802814"
            "0090407f"
            "64804000"
            "00ff2f00")
      << "ends come before starts, and pitches that MIDI has not are left out";
}

TEST(MidiFile, playsOneToneOfAPitchAtATime) {
  const auto note = [](int start, int length, int pitch) {
    return MidiNote{start, length, pitch, 50, 20};
  };
  EXPECT_EQ(playableNotes({note(10, 9, 40), note(0, 20, 40), note(0, 30, 45), note(10, 5, 40),
                           note(19, 1, 40), note(-1, 5, 40), note(5, 0, 40)}),
            (std::vector{note(0, 10, 40), note(0, 30, 45), note(10, 9, 40), note(19, 1, 40)}));
}

TEST(SongMidi, playsEveryChordAStepAfterTheOneBefore) {
  const test::StandardStore store;
  QBSong* song = store.song("Song");
  song->setTuning(store.dropD());
  song->setTempoRate(0.5F);
  test::addChord(song, "0", 7);
  test::addChord(song, "", 1);
  QBChord* last = test::addChord(song, "xx3xx0", 1);
  last->hold()->findToneByString(2)->setDuration(0);
  last->hold()->findToneByString(5)->setDuration(4);
  last->hold()->addTone(4, 12, 1)->setActive(false);
  const MidiSequence midi = midiOf(*song, Meter{6, 8});
  const auto note = [](int start, int length, int pitch) {
    return MidiNote{start, length, pitch, 50, 20};
  };
  EXPECT_EQ(midi.notes, (std::vector{note(0, 228, 38), note(240, 228, 53), note(240, 456, 64)}));
  EXPECT_EQ(midi.meter, (Meter{6, 8}));
  // A step is a quarter of a quarter, half as fast as it was recorded.
  EXPECT_NEAR(midi.quarterSeconds, 2 * 4 * 16384 / 44100.0, 1e-9);
}

}  // namespace
}  // namespace korvel
