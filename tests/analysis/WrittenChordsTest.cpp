// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/beats/WrittenChords.h"

#include "music/Ticks.h"
#include "support/Testing.h"

namespace korvel {
namespace {

using fingering::Note;
using rhythm::Reading;

struct Piece {
  std::vector<Note> notes;
  Reading reading;
};

/// Anything that a reading may say, notes without a string and long rests included.
Piece anyPiece(std::mt19937& random) {
  const auto any = [&](int from, int to) {
    return from + static_cast<int>(random() % static_cast<unsigned>(to - from + 1));
  };
  Piece piece;
  Reading& reading = piece.reading;
  reading.metre = {any(2, 4), any(0, 1) == 1};
  reading.firstBar = static_cast<std::size_t>(any(0, reading.metre.beats - 1));
  for (int beat = 0; beat < 40; ++beat) reading.beats.push_back(1 + 0.5 * beat);
  int tick = any(0, 30) - static_cast<int>(reading.firstBar) * rhythm::kTicksOfBeat;
  for (int count = any(1, 20); count > 0; --count) {
    const int gap = any(1, any(0, 9) == 0 ? 150 : 15);
    rhythm::Event event{{tick, any(1, gap)}, {}};
    for (int each = any(1, 6); each > 0; --each) {
      event.notes.push_back(piece.notes.size());
      reading.notes.push_back({tick, any(1, 100)});
      piece.notes.push_back({.onset = reading.secondsOf(tick), .string = any(-1, 6)});
      piece.notes.back().amplitude = static_cast<float>(any(1, 9));
    }
    reading.events.push_back(std::move(event));
    tick += gap;
  }
  return piece;
}

int barOf(int tick, int barTicks) { return (tick + 1000 * barTicks) / barTicks; }

void expectFullBars(const std::vector<WrittenChord>& chords, int barTicks) {
  std::map<int, int> lengths;
  for (int at = chords.front().tick; const WrittenChord& chord : chords) {
    EXPECT_EQ(chord.tick, std::exchange(at, chord.tick + chord.ticks)) << "no gaps";
    EXPECT_GE(chord.ticks, 1);
    EXPECT_EQ(barOf(chord.tick, barTicks), barOf(at - 1, barTicks)) << "none across a bar line";
    EXPECT_EQ(chord.bar, barOf(chord.tick, barTicks) - barOf(chords.front().tick, barTicks));
    lengths[chord.bar] += chord.ticks;
  }
  for (const auto& [bar, ticks] : lengths) {
    const bool isPickUp = bar == 0 && chords.front().tick < 0;
    EXPECT_EQ(ticks, isPickUp ? -chords.front().tick : barTicks) << bar;
  }
}

/// A string sounds until it is struck again at most, and each is struck once in a chord.
void expectTonesEnd(const std::vector<WrittenChord>& chords) {
  std::map<int, int> struckNext;
  for (auto at = chords.rbegin(); at != chords.rend(); ++at) {
    const WrittenChord& chord = *at;
    std::set<int> strings;
    for (const WrittenTone& tone : chord.tones) {
      EXPECT_TRUE(strings.insert(tone.string).second);
      EXPECT_GE(tone.ticks, 1);
      if (const auto next = struckNext.find(tone.string); next != struckNext.end()) {
        EXPECT_LE(chord.tick + tone.ticks, next->second);
      }
    }
    for (const int string : strings) struckNext[string] = chord.tick;
  }
}

TEST(WrittenChords, fillTheBarsOfAnyReading) {
  std::mt19937 random(11);
  for (int round = 0; round < 500; ++round) {
    SCOPED_TRACE(round);
    const auto [notes, reading] = anyPiece(random);
    const auto chords = writtenChords(notes, reading);
    ASSERT_FALSE(chords.empty());
    expectFullBars(chords, reading.metre.ticks());
    expectTonesEnd(chords);
    for (const rhythm::Event& event : reading.events) {
      const auto chord = std::ranges::find(chords, event.place.tick, &WrittenChord::tick);
      ASSERT_NE(chord, chords.end()) << "each event begins a chord";
      const auto isOnNeck = [&heard = notes](std::size_t i) {
        return heard[i].string >= 0 && heard[i].string < 6;
      };
      EXPECT_EQ(chord->tones.empty(), std::ranges::none_of(event.notes, isOnNeck));
    }
  }
}

TEST(Ticks, sixteenthsOfABarAddUpToIt) {
  std::mt19937 random(5);
  for (const auto& [beat, beattype] : {std::pair{4, 4}, {3, 4}, {2, 4}, {6, 8}, {9, 8}, {12, 8}}) {
    const bool compound = isCompound(beat, beattype);
    const int bar = ticksOfBar(beat, beattype);
    for (int round = 0; round < 100; ++round) {
      int sum = 0;
      for (int from = -bar; from < 0;) {
        const unsigned longest = round % 2 == 0 ? 20 : 3;  // tuplets of sixteenths, too
        const int to = std::min(from + 1 + static_cast<int>(random() % longest), 0);
        sum += sixteenthsBetween(from, to, compound);
        EXPECT_EQ(sixteenthsBetween(from + bar, to + bar, compound),
                  sixteenthsBetween(from, to, compound))
            << "before a bar line as after it";
        from = to;
      }
      EXPECT_EQ(sum, 16 * beat / beattype);
    }
  }
}

}  // namespace
}  // namespace korvel
