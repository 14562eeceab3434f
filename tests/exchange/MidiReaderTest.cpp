// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/midi/MidiReader.h"

#include <gtest/gtest.h>

#include <random>

#include "exchange/PieceText.h"
#include "export/MidiFile.h"
#include "platform/text/UserError.h"

namespace korvel::exchange {
namespace {

/// Bytes in hexadecimal, blanks between them as one likes.
std::string bytes(std::string_view hex) {
  std::string all;
  for (std::size_t i = 0; i + 1 < hex.size(); i += hex[i] == ' ' ? 1U : 2U)
    if (hex[i] != ' ')
      all += static_cast<char>(std::stoi(std::string(hex.substr(i, 2)), nullptr, 16));
  return all;
}

std::string track(std::string_view hex) {
  const std::string events = bytes(hex);
  return "MTrk" + std::string(3, '\0') + static_cast<char>(events.size()) + events;
}

/// With four ticks of a quarter.
std::string file(int format, std::initializer_list<std::string> tracks,
                 const char* division = "0004") {
  std::string all =
      "MThd" + bytes("00000006 00") + static_cast<char>(format) + bytes("0001") + bytes(division);
  for (const std::string& each : tracks) all += each;
  return all;
}

std::string read(const std::string& content) {
  try {
    return test::textOf(readMidi(content));
  } catch (const platform::UserError& error) {
    return error.what();
  }
}

TEST(MidiReaderTest, readsBothFormats) {
  // Tempo, name in Latin-1, program, a chord with running status, and drums; a bar of 3/8.
  const std::string one = track(
      "00FF5103 0F4240 00FF0302 47E9 00FF5802 0303 00C01E 00904050 004350 02400002 4300"
      "00992650 0199267F 00892600 00892600 08B0407F 00B9407F 00FF2F00");
  EXPECT_EQ(read(file(0, {one})),
            "Gé | 0+1.5 3/8 | 0=60\n1 p30 | 0+0.5 64 v80 0+1 67 v80 | left 1 pedals\n"
            "10 p-1 drums | 1+0.25 38 v80 1.25+0.25 38 v127 | left 1 pedals\n");
  EXPECT_EQ(read("RIFF    RMIDdata    " + file(0, {one})), read(file(0, {one})));
  // A pick-up with a time signature of its own; a note that never ends; a tempo that changes.
  EXPECT_EQ(read(file(1, {track("00FF5802 0102 00FF5902 FF01 04FF5802 0302 06FF5103 07A120"),
                          track("00FF0305 4C65616421 04914050 08FF2F00")})),
            " key 2m | 0+1 3/4 1+3 3/4 | 0=120 2.5=120\nLead! p-1 | 1+2 64 v80\n");
}

TEST(MidiReaderTest, passesOverWhatIsNoNote) {
  // Messages of the system, lyrics, markers, sounds that change before and behind the notes, a bend
  // that is let go, with the status that goes on, and one that is not; behind the end is nothing.
  EXPECT_EQ(
      read(file(0, {track("00F003 010203 00F2 0102 00FF0502 6C61 00FF0603 656E64 00C018 00C01A"
                          "00904050 00E00060 01E00040 0040 50 00F7027F7F 03804040 00E07F00"
                          "00C01B 00FF2F00 00904050")})),
      " | 0+4 4/4 | 0=120 | left 1 lyrics | left 1 markers\n p26 | 0+1 64 v80 | left 2 bends "
      "| left 1 changes of sound\n");
}

TEST(MidiReaderTest, refusesOrReadsAsFarAsItGoes) {
  EXPECT_EQ(read("MThd"), "it is no MIDI file");
  EXPECT_EQ(read(file(2, {})),
            "its tracks are pieces of their own, which is not read; save it in another format of "
            "MIDI");
  EXPECT_EQ(read(file(1, {}, "0000")), "it does not say how long a beat is");
  EXPECT_EQ(read(file(1, {track("004050")})), "one of its tracks is broken");
  EXPECT_EQ(read(file(0, {track("00904050 0440")})),
            " | 0+4 4/4 | 0=120 | left 1 tracks that break off\n p-1 | 0+1 64 v80\n");
  // 25 frames of 40 ticks: milliseconds, whatever the tempo.
  EXPECT_EQ(read(file(0, {track("00FF5103 0F4240 00904050 83748040 00")}, "E728")),
            " | 0+4 4/4 | 0=120\n p-1 | 0+1 64 v80\n");
  EXPECT_EQ(read(file(1, {track("00FF5802 0106 FFFFFF7F 904050")})), "it has more than 20000 bars");
}

TEST(MidiReaderTest, readsBackWhatIsWritten) {
  for (unsigned seed = 0; seed < 300; ++seed) {
    std::mt19937 random(seed);
    const auto below = [&](unsigned most) { return static_cast<int>(random() % most); };
    MidiSequence sequence;
    sequence.title = "Größe";
    sequence.quarterSeconds = 0.25 + 0.001 * below(1000);
    sequence.meter = {3 + below(3), 4};
    sequence.key = ScoreKey{below(12), below(2) == 1};
    for (int i = 0; i < 200; ++i)
      sequence.notes.push_back({below(20000), 1 + below(900), 30 + below(60), 1 + below(127), 0});
    const Piece piece = readMidi(midiFile(sequence));
    std::vector<MidiNote> got;
    for (const Note& note : piece.tracks.at(0).notes)
      got.push_back({note.at * 480 / kGrainsOfQuarter, note.length * 480 / kGrainsOfQuarter,
                     note.pitch, note.velocity, 0});
    ASSERT_EQ(got, playableNotes(sequence.notes)) << seed;
    ASSERT_EQ(piece.title, sequence.title);
    ASSERT_EQ(piece.tracks[0].program, 25);
    ASSERT_EQ(piece.key, (Key{sequence.key->tonic, sequence.key->minor}));
    ASSERT_EQ(piece.bars.back().beats, sequence.meter.beats);
    ASSERT_NEAR(60 / piece.tempos.front().quartersAMinute, sequence.quarterSeconds, 1e-6);
  }
}

}  // namespace
}  // namespace korvel::exchange
