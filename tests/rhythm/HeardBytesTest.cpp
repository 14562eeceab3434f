// SPDX-License-Identifier: GPL-3.0-or-later
#include "rhythm/stored/HeardBytes.h"

#include "rhythm/stored/NoteCorrections.h"
#include "support/Testing.h"

namespace korvel::rhythm {
namespace {

using fingering::Note;

/// Strums of six strings, ten in a second.
HeardNotes denseMinute() {
  HeardNotes heard;
  for (int strum = 0; strum < 600; ++strum)
    for (int string = 0; string < 6; ++string) {
      const double onset = 0.1 * strum + 0.0071 * string;
      const float strength = 0.2F + static_cast<float>(strum % 29) / 10;
      heard.taken.push_back({onset, onset + 0.3123 * string + 0.05, 40 + 5 * string + strum % 12,
                             string, strum % 12, strength, 0.987F, strength / 30});
    }
  heard.doubtful.push_back({59, 59.00001, 60, -1, -1, 0, 0, 0});
  return heard;
}

void expectSame(const std::vector<Note>& read, const std::vector<Note>& written) {
  ASSERT_EQ(read.size(), written.size());
  constexpr double kHalfSample = 0.5001 / 44100;
  for (std::size_t i = 0; i < read.size(); ++i) {
    EXPECT_NEAR(read[i].onset, written[i].onset, kHalfSample);
    EXPECT_NEAR(read[i].end, std::max(written[i].end, read[i].onset + 1. / 44100), kHalfSample);
    const auto place = [](const Note& note) {
      return std::tuple(note.pitch, note.string, note.fret);
    };
    EXPECT_EQ(place(read[i]), place(written[i]));
    EXPECT_NEAR(read[i].strength, written[i].strength, 1e-4);
    EXPECT_NEAR(read[i].probability, written[i].probability, 1e-4);
    EXPECT_NEAR(read[i].amplitude, written[i].amplitude, 0.006 * written[i].amplitude + 1.1e-9);
  }
}

/// Nothing comes of another version, of what is cut short, and of what goes on.
template <class Read>
void expectWhole(Bytes bytes, const Read& read) {
  EXPECT_TRUE(read(bytes));
  for (std::size_t size = 0; size < bytes.size(); size += 1 + bytes.size() / 500)
    EXPECT_FALSE(read(std::span(bytes).first(size))) << size;
  bytes.push_back({});
  EXPECT_FALSE(read(bytes));
  bytes.pop_back();
  bytes[0] = std::byte{99};
  EXPECT_FALSE(read(bytes));
}

TEST(HeardBytes, keepsNotesToTheSample) {
  const HeardNotes written = denseMinute();
  const Bytes bytes = bytesOf(written);
  EXPECT_LE(bytes.size(), 60000U);
  const auto read = heardNotes(bytes);
  ASSERT_TRUE(read);
  expectSame(read->taken, written.taken);
  expectSame(read->doubtful, written.doubtful);
  EXPECT_EQ(bytesOf(*read), bytes);
  expectWhole(bytes, heardNotes);
}

TEST(HeardBytes, keepsRhythmAndWishes) {
  const Wishes wishes{118.5, Metre{2, true}, Feel::swing, 8, 1.0, {0.5, 1, 1.5, 2}, {2.25}};
  Rhythm rhythm;
  rhythm.others = {{240, {3}, Feel::triplets, 2.5}};
  rhythm.isFree = true;
  Reading& reading = rhythm.reading;
  reading.beats = {-0.25, 1, 1.5, 2};
  reading.firstBar = 1;
  reading.metre = {2, true};
  reading.feel = Feel::swing;
  reading.swingRatio = 0.64;
  reading.key = Key{9, true};
  reading.chords = {{-12, 12, 9, Quality::minor}, {12, 24, -1, Quality::major}};
  const Bytes bytes = bytesOf(rhythm, wishes);
  const auto read = storedRhythm(bytes);
  ASSERT_TRUE(read);
  EXPECT_EQ(read->wishes, wishes);
  const auto parts = [](const Rhythm& of) {
    const Reading& each = of.reading;
    return std::tuple(each.beats, each.firstBar, each.metre, each.feel, each.swingRatio, each.key,
                      each.chords, of.isFree, of.others.at(0).tempo, of.others.at(0).metre,
                      of.others.at(0).feel, of.others.at(0).behind);
  };
  EXPECT_EQ(parts(read->rhythm), parts(rhythm));
  EXPECT_EQ(bytesOf(read->rhythm, read->wishes), bytes);
  expectWhole(bytes, storedRhythm);
  EXPECT_TRUE(storedRhythm(bytesOf(Rhythm{}, Wishes{})));
  // How sure names are makes a later version of it.
  reading.chords[0].probability = 0.4321;
  reading.chords[0].bass = 4;
  const Bytes later = bytesOf(rhythm, wishes);
  EXPECT_EQ(later.size(), bytes.size() + 6);
  const auto again = storedRhythm(later);
  ASSERT_TRUE(again);
  EXPECT_NEAR(again->rhythm.reading.chords[0].probability, 0.4321, 1e-9);
  EXPECT_EQ(again->rhythm.reading.chords[0].bass, 4);
  EXPECT_EQ(again->rhythm.reading.chords[1], reading.chords[1]);
  EXPECT_EQ(bytesOf(again->rhythm, again->wishes), later);
  expectWhole(later, storedRhythm);
}

TEST(HeardBytes, keepsCorrectionsWhichDecideWhatIsThere) {
  HeardNotes heard = denseMinute();
  NoteCorrections written;
  written.verdicts = {{sampleOfOnset(heard.taken.front()), 40, false, true},
                      {sampleOfOnset(heard.doubtful.front()), 60, true, false, 3, 5}};
  written.again = {{1, 2.5, {{{2, 2.5, 50, 2, 0, 1, 1, 1}}, {}}}};
  const Bytes bytes = bytesOf(written);
  const auto read = noteCorrections(bytes);
  ASSERT_TRUE(read);
  EXPECT_EQ(read->verdicts, written.verdicts);
  EXPECT_EQ(bytesOf(*read), bytes);
  expectWhole(bytes, noteCorrections);
  const auto isWithin = [](const Note& note) { return note.onset >= 1 && note.onset < 2.5; };
  const auto away = static_cast<std::size_t>(std::ranges::count_if(heard.taken, isWithin));
  const std::vector<Note> notes = notesBy(heard, *read);
  EXPECT_EQ(notes.size(), heard.taken.size() - away + 1);
  EXPECT_EQ(std::ranges::count_if(notes, isWithin), 1) << "heard again";
  EXPECT_EQ(notes.front().pitch, 45) << "the first one was dropped";
  const auto came = std::ranges::find_if(
      notes, [](const Note& note) { return note.onset == 59 && note.pitch == 60; });
  ASSERT_NE(came, notes.end());
  EXPECT_EQ(came->fret, 5);
}

}  // namespace
}  // namespace korvel::rhythm
