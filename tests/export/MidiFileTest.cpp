// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/MidiFile.h"

#include <regex>

#include "export/SongMidi.h"
#include "export/score/NoteValues.h"
#include "export/score/SongScore.h"
#include "support/Testing.h"
#include "support/songs/BeatSong.h"
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

/// "start+length:pitch", tempi as "start=microseconds", metres as "start=beats/type".
std::string eventsOf(const MidiSequence& midi) {
  std::string text;
  const auto tempo = [&](std::int64_t start, double seconds) {
    text += std::to_string(start) + '=' + std::to_string(std::llround(seconds * 1e6)) + ' ';
  };
  const auto meter = [&](std::int64_t start, const Meter& at) {
    text += std::to_string(start) + '=' + std::to_string(at.beats) + '/' +
            std::to_string(at.beatType) + ' ';
  };
  tempo(0, midi.quarterSeconds);
  for (const auto& [start, seconds] : midi.tempi) tempo(start, seconds);
  meter(0, midi.meter);
  for (const auto& each : midi.meters) meter(each.start, each.meter);
  for (const MidiNote& note : midi.notes)
    text += std::to_string(note.start) + '+' + std::to_string(note.length) + ':' +
            std::to_string(note.pitch) + ' ';
  return text;
}

TEST(SongMidi, playsASongOnBeatsAtItsTicks) {
  const test::StandardStore store;
  QBSong* song = store.song("Song");
  test::beatSong(
      song,
      "tempo=100 swing=0.7 3/4 xxx2xx t6 | 0xxxx0 t12_0t36 xxx2xx t4 xxx0xx t8 rt6 xxx2xx t6=t12");
  const std::string notes = "96+144:57 240+1440:40 240+480:64 720+224:57 944+256:55 1536+480:57 ";
  EXPECT_EQ(eventsOf(midiOf(*song)), "0=600000 0=1/8 240=3/4 " + notes);
  test::setBeatTimes(song, -6, [](int tick) { return 3 + 0.05 * std::max(2 * tick - 12, tick); });
  song->setTempoRate(2);
  EXPECT_EQ(eventsOf(midiOf(*song)), "0=300000 720=600000 1200=450000 0=1/8 240=3/4 " + notes);

  QBSong* compound = store.song("Compound");
  test::beatSong(
      compound, "tempo=60 key=16 6/8 xxx2xx t4 | 0xxxx0 t12_0t36 xxx2xx t5 xxx0xx t7 | x02xxx t24");
  const MidiSequence midi = midiOf(*compound);
  EXPECT_EQ(eventsOf(midi),
            "0=666667 0=1/8 240=6/8 0+240:57 240+2160:40 240+720:64 960+300:57 1260+420:55 "
            "1680+1440:45 1680+1440:52 ");
  EXPECT_NE(midiFile(midi).find("\xff\x59\x02\x01\x01"), std::string::npos);
}

TEST(SongMidi, hasAPickUpAsLongAsItsScore) {
  const test::StandardStore store;
  const auto pickUps = [&](const std::string& metre) {
    std::string text;
    for (const int ticks : {6, 12, 18, 24, 4}) {
      QBSong* song = store.song("Song");
      test::beatSong(song, metre + " x02xxx t" + std::to_string(ticks) + " | rt12 | rt12");
      const MidiSequence midi = midiOf(*song);
      const std::string events = eventsOf(midi).substr(eventsOf(midi).find(' ') + 1);
      text += events.substr(0, events.find('+')) + ", ";
      const Score score = scoreOf(*song);
      const WrittenBar bar = writtenBars(score).front();
      int units = 0;
      for (const ScoreNote& note : bar.notes) units += note.value->units;
      EXPECT_EQ(units, bar.pickUp > 0 ? bar.pickUp : bar.meter.units());
      EXPECT_EQ(units * 20, midi.meters.empty() ? bar.meter.units() * 20 : midi.meters[0].start);
    }
    return text;
  };
  const std::string inQuarters =
      "0=1/8 240=@ 0, 0=1/4 480=@ 0, 0=3/8 720=@ 0, 0=2/4 960=@ 0, "
      "0=1/4 480=@ 320, ";
  for (const char* metre : {"3/4", "4/4"})
    EXPECT_EQ(pickUps(metre), std::regex_replace(inQuarters, std::regex("@"), metre));
  EXPECT_EQ(pickUps("6/8"),
            "0=3/16 360=6/8 0, 0=3/8 720=6/8 0, 0=9/16 1080=6/8 0, 0=6/8 0, 0=1/8 240=6/8 0, ");
}

}  // namespace
}  // namespace korvel
