// SPDX-License-Identifier: GPL-3.0-or-later
#include "rhythm/RhythmReader.h"

#include "support/Testing.h"

namespace korvel::rhythm {
namespace {

using fingering::Note;

/// A bar is drawn with a letter for each step, of which a beat has some: B a low note, D an
/// accented chord, d and u soft ones, o a tone, . nothing. Chords change from bar to bar.
struct Piece {
  const char* name;
  double tempo;
  const char* bar;
  int steps;  ///< Of a beat.
  Metre metre;
  Feel feel = Feel::straight;
  double swing = 0;      ///< Where the second of two steps comes.
  int pickUp = 0;        ///< Steps before the first bar line.
  double slowsDown = 0;  ///< The share of the tempo that is lost until the end.
};

constexpr double kSeconds = 24;

double placeOf(const Piece& piece, int step) {
  const int beat = step / piece.steps, part = step % piece.steps;
  if (piece.swing > 0 && part == 1) return beat + piece.swing;
  return beat + double{1} * part / piece.steps;
}

void strike(std::vector<Note>& notes, char letter, double at, double seconds, int bar) {
  static constexpr int kRoots[]{48, 45, 41, 43};
  const int root = kRoots[bar % 4], third = bar % 4 == 1 ? 3 : 4;
  const float strength = letter == 'D' || letter == 'B' ? 2.F : letter == 'o' ? 1.5F : 1.2F;
  const auto add = [&](int pitch, double later) {
    notes.push_back({at + later, at + seconds, pitch, -1, -1, strength, 0.95F});
  };
  if (letter == 'B') return add(root - 12, 0);
  if (letter == 'o') return add(60 + bar % 3, 0);
  const double down = letter == 'u' ? -0.008 : 0.008;
  for (const int i : {0, 1, 2}) add(root + (i == 1 ? third : i == 2 ? 7 : 0), (i - 1) * down);
}

std::vector<Note> played(const Piece& piece) {
  std::vector<Note> notes;
  const int bar = static_cast<int>(std::string_view(piece.bar).size());
  const double beats = kSeconds * piece.tempo / 60;
  std::mt19937 random(7);
  double time = 0.5, before = placeOf(piece, bar - piece.pickUp);
  for (int step = bar - piece.pickUp;; ++step) {
    const double place = placeOf(piece, step);
    if (place > beats && step % bar == 0) break;
    time += (place - before) * 60 / piece.tempo / (1 - piece.slowsDown * place / beats);
    before = place;
    const double loose = (static_cast<double>(random() % 1000) / 1000 - 0.5) * 0.016;
    const char letter = piece.bar[step % bar];
    const double seconds = 54 / piece.tempo / piece.steps;
    if (letter != '.') strike(notes, letter, time + loose, seconds, step / bar);
  }
  std::ranges::sort(notes, {}, [](const Note& n) { return std::pair(n.onset, n.pitch); });
  return notes;
}

/// The ticks on which the steps are written.
std::vector<int> writtenTicks(const Piece& piece, std::size_t count) {
  const int bar = static_cast<int>(std::string_view(piece.bar).size());
  std::vector<int> ticks;
  for (int step = -piece.pickUp; ticks.size() < count; ++step) {
    if (piece.bar[(step + bar) % bar] != '.') ticks.push_back(step * kTicksOfBeat / piece.steps);
  }
  return ticks;
}

const Piece kPieces[] = {
    {"a metronome at 60", 60, "oooo", 1, {4}},
    {"a metronome at 100", 100, "oooo", 1, {4}},
    {"a metronome at 180, which is read as eighths", 90, "oooooooo", 2, {4}},
    {"a pick-up", 100, "D.dud.du", 2, {4}, Feel::straight, 0, 2},
    {"accented eighths", 112, "DududuDu", 2, {4}},
    {"sixteenths", 84, "D..uD.duD..uDudu", 4, {4}},
    {"a waltz", 150, "Bdd", 1, {3}},
    {"a shuffle", 112, "DuduDudu", 2, {4}, Feel::swing, 0.64},
    {"triplets", 84, "DduDduDduDdu", 3, {4}, Feel::triplets},
    {"six eighths", 66, "BdudduBdduuu", 3, {2, true}},
    {"a ritardando", 104, "D.dud.du", 2, {4}, Feel::straight, 0, 0, 0.25},
};

TEST(RhythmReader, readsPieces) {
  for (const Piece& piece : kPieces) {
    SCOPED_TRACE(piece.name);
    const Reading reading = rhythmOf(played(piece)).reading;
    const double slowed = piece.tempo * (1 - piece.slowsDown / 2);
    EXPECT_NEAR(reading.tempo(), slowed, (0.015 + piece.slowsDown / 4) * slowed);
    EXPECT_EQ(reading.metre, piece.metre) << reading.metre.beats;
    EXPECT_EQ(reading.feel, piece.feel);
    EXPECT_NEAR(reading.swingRatio, std::max(piece.swing, 0.5), 0.02);
    std::vector<int> ticks;
    for (const Event& event : reading.events) ticks.push_back(event.place.tick);
    EXPECT_EQ(ticks, writtenTicks(piece, ticks.size()));
  }
}

TEST(RhythmReader, readsATempoThatJumps) {
  Piece piece = kPieces[3];
  piece.pickUp = 0;
  std::vector<Note> notes = played(piece);
  piece.tempo = 125;
  for (Note note : played(piece)) {
    note.onset += kSeconds;
    note.end += kSeconds;
    notes.push_back(note);
  }
  const std::vector<double> beats = rhythmOf(notes).reading.beats;
  for (std::size_t i = 0; i + 1 < beats.size(); ++i) {
    const double tempo = beats[i + 1] < kSeconds + 0.6 ? 100 : 125;
    EXPECT_NEAR(60 / (beats[i + 1] - beats[i]), tempo, 0.03 * tempo) << beats[i];
  }
}

/// A tune without chords or bass, whose beats have some steps of one length or fewer notes; accents
/// hardly tell which of them are beats.
std::vector<Note> tune(unsigned seed, double tempo, int steps) {
  std::mt19937 random(seed);
  std::vector<Note> notes;
  const double step = 60 / tempo / steps;
  int pitch = 60;
  unsigned cell = 0;
  for (int i = 0; i * step < kSeconds; ++i) {
    const int part = i % steps;
    if (part == 0) cell = random() % 8;
    const bool rests =
        cell == 4 ? part == 0 : part > 0 && cell > 4 && (cell > 5 || part < steps - 1);
    if (rests) {
      if (!notes.empty()) notes.back().end += step;
      continue;
    }
    pitch = std::clamp(pitch + static_cast<int>(random() % 7) - 3, 52, 76);
    const double at = 0.3 + i * step + 0.001 * static_cast<double>(random() % 45);
    const float accent = part == 0 ? 1.05F : 1;
    const float strength = accent * (0.8F + 0.004F * static_cast<float>(random() % 100));
    notes.push_back({at, at + 0.9 * step, pitch, -1, -1, strength, 0.95F});
  }
  return notes;
}

/// Triplets may be eighths of beats that are three halves as fast, and the other way round.
TEST(RhythmReader, tellsTripletsFromFasterEighths) {
  constexpr unsigned kTunes = 16;
  const auto right = [](double tempo, int steps) {
    unsigned count = 0;
    for (unsigned seed = 0; seed < kTunes; ++seed) {
      const double found = rhythmOf(tune(seed, tempo, steps)).reading.tempo();
      count += std::abs(found / tempo - 1) < 0.03;
    }
    return count;
  };
  EXPECT_GE(right(66, 3), 11U);
  EXPECT_GE(right(99, 2), 12U);
}

/// Strings one after the other, or the lowest one heard late.
TEST(RhythmReader, joinsWhatOneStrokeStrikes) {
  static constexpr int kPitches[]{40, 47, 52, 56, 59, 64};
  for (const double step : {0.06, 0.008}) {
    std::vector<Note> notes;
    for (int i = 0; i < 16 * 6; ++i) {
      const int string = i % 6;
      const bool isLate = step < 0.01 && string == 0;
      const double onset = 0.6 * (i / 6) + (isLate ? 0.1 : step * string);
      notes.push_back({onset, onset + 0.5, kPitches[string], string, 0, 1, 0.9F});
    }
    std::ranges::sort(notes, {}, &Note::onset);
    EXPECT_EQ(rhythmOf(notes).reading.events.size(), 16U) << step;
  }
}

/// What every reading promises.
void expectOrder(const Reading& reading, std::span<const Note> notes) {
  ASSERT_GE(reading.beats.size(), 2U);
  EXPECT_TRUE(std::ranges::is_sorted(reading.beats, std::ranges::less_equal{}));
  EXPECT_LT(reading.firstBar, static_cast<std::size_t>(reading.metre.beats));
  ASSERT_EQ(reading.notes.size(), notes.size());
  const int first = -static_cast<int>(reading.firstBar) * kTicksOfBeat;
  const int last = first + static_cast<int>(reading.beats.size() - 1) * kTicksOfBeat;
  int end = first;
  for (const Event& event : reading.events) {
    EXPECT_GE(event.place.tick, end);
    EXPECT_GE(event.place.ticks, 1);
    end = event.place.end();
    for (const std::size_t i : event.notes) EXPECT_EQ(reading.notes[i].tick, event.place.tick);
  }
  for (const Place& place : reading.notes) EXPECT_LE(place.end(), last);
  end = first;
  for (const ChordSpan& chord : reading.chords) {
    EXPECT_EQ(chord.from, std::exchange(end, chord.to));
    EXPECT_LT(chord.from, chord.to);
  }
  EXPECT_EQ(end, last);
}

TEST(RhythmReader, readsWhateverItIsGiven) {
  EXPECT_TRUE(rhythmOf({}).reading.beats.empty());
  std::mt19937 random(3);
  const auto any = [&](double most) { return most * static_cast<double>(random() % 10000) / 1e4; };
  using Times = std::function<double(int)>;
  const std::tuple<const char*, int, Times> kinds[] = {
      {"one note", 1, [](int) { return 3.0; }},
      {"one instant", 300, [](int) { return 1.0; }},
      {"noise", 200, [&](int) { return any(30); }},
      {"a silence of 30 s", 60, [](int i) { return 0.5 * i + (i < 30 ? 0 : 30); }},
      {"a beat in 1.5 s", 40, [](int i) { return 1.5 * i; }},
      {"an hour", 1800, [](int i) { return 2.0 * i; }}};
  for (const auto& [name, count, time] : kinds) {
    SCOPED_TRACE(name);
    std::vector<Note> notes;
    for (int i = 0; i < count; ++i) notes.push_back({.onset = time(i), .pitch = 40 + i % 30});
    for (Note& note : notes) note.end = note.onset + any(2);
    std::ranges::sort(notes, {}, &Note::onset);
    const Rhythm rhythm = rhythmOf(notes);
    expectOrder(rhythm.reading, notes);
    EXPECT_EQ(rhythm.isFree, std::string(name) == "noise");
    expectOrder(rhythmOf(notes, {.tempo = any(300),
                                 .metre = Metre{3},
                                 .barLine = 1.0,
                                 .taps = {1, 1.4, 1.8, 2.3},
                                 .fixedBeats = {2, 2.01, 9}})
                    .reading,
                notes);
  }
}

TEST(RhythmReader, followsWishes) {
  const std::vector<Note> notes = played(kPieces[4]);
  const auto with = [&](const Wishes& wishes) { return rhythmOf(notes, wishes).reading; };
  EXPECT_NEAR(with({.tempo = 58}).tempo(), 56, 1);
  EXPECT_NEAR(with({.tempo = 130}).tempo(), 112, 1);
  EXPECT_TRUE(hasWishedTempo(with({.tempo = 58}), {.tempo = 58}));
  EXPECT_FALSE(hasWishedTempo(with({.tempo = 130}), {.tempo = 130}));
  EXPECT_EQ(with({.metre = Metre{4, true}}).metre, (Metre{4, true}));
  EXPECT_EQ(with({.feel = Feel::swing}).feel, Feel::swing);
  for (const Event& event : with({.tempo = 56, .finest = 8}).events) {
    EXPECT_NE(event.place.tick % 6, 3);
  }
  const Reading moved = with({.barLine = with({}).secondsOf(kTicksOfBeat)});
  EXPECT_EQ(moved.firstBar, 1U);
  EXPECT_EQ(moved.metre, Metre{4});
  EXPECT_NEAR(moved.tempo(), 112, 1);
  EXPECT_NEAR(with({.taps = {2, 2.27, 2.54, 2.8, 3.07}}).tempo(), 224, 4);
  const double dragged = with({}).secondsOf(96) + 0.06;
  EXPECT_TRUE(std::ranges::count(with({.fixedBeats = {dragged}}).beats, dragged));
}

}  // namespace
}  // namespace korvel::rhythm
