// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/WindowedEngine.h"

#include "support/Testing.h"
#include "support/sound/Guitar.h"

namespace korvel::precise {
namespace {

using Sound = std::vector<float>;

Sound repeated(const std::vector<test::Strum>& strums, double seconds) {
  const auto samples = test::play(strums);
  Sound sound(static_cast<std::size_t>(seconds * 44100));
  for (std::size_t i = 0; i < sound.size(); ++i)
    sound[i] = static_cast<float>(samples[i % samples.size()]) / 32768;
  return sound;
}

Findings heardInWindows(std::span<const float> sound) {
  constexpr std::size_t kPiece = 16384;
  WindowedEngine engine;
  const auto hear = [&] {
    while (engine.step()) continue;
  };
  while (!sound.empty()) {
    const auto piece = sound.first(std::min(sound.size(), kPiece));
    sound = sound.subspan(piece.size());
    engine.add(piece);
    while (engine.isFull()) hear();
  }
  engine.finish();
  while (engine.isFull()) hear();
  hear();
  return engine.take();
}

Analysis heardAtOnce(const Sound& sound) {
  Engine engine;
  engine.add(sound);
  while (engine.step()) continue;
  return engine.take();
}

std::vector<std::string> linesOf(const std::vector<Note>& notes) {
  std::vector<std::string> lines;
  for (const Note& note : notes)
    lines.push_back(std::to_string(note.pitch) + " from " + std::to_string(note.onset) + " to " +
                    std::to_string(note.end));
  return lines;
}

const std::vector<test::Strum> kStrums{{test::notesOf("x32010"), 0.9},
                                       {{45}, 0.45},
                                       {{57}, 0.45},
                                       {test::notesOf("xx0232"), 1.3},
                                       {{64}, 0.7}};

TEST(PreciseWindows, areNoneWhereAllFitsIntoOne) {
  const Sound sound = repeated(kStrums, 20);
  const Analysis expected = heardAtOnce(sound);
  const Findings found = heardInWindows(sound);
  EXPECT_EQ(linesOf(found.notes), linesOf(expected.notes));
  EXPECT_EQ(linesOf(found.doubtful), linesOf(expected.doubtful));
  EXPECT_EQ(found.frames, static_cast<Frame>(expected.frames));
  const NoteCurves curves(expected, expected.notes);
  for (std::size_t i = 0; i < found.notes.size(); ++i)
    EXPECT_EQ(found.curves.amplitude(i, {0, found.frames}), curves.amplitude(i, {0, found.frames}));
}

bool isSame(const Note& a, const Note& b) {
  constexpr double kThreeFrames = 0.035;
  return a.pitch == b.pitch && std::abs(a.onset - b.onset) < kThreeFrames;
}

TEST(PreciseWindows, meetWithoutASeam) {
  const Sound sound = repeated(kStrums, 630);
  const std::vector<Note> whole = heardAtOnce(sound).notes;
  const Findings both = heardInWindows(sound);
  const std::vector<Note>& found = both.notes;
  EXPECT_TRUE(std::ranges::is_sorted(found, {}, &Note::onset));
  EXPECT_NEAR(static_cast<double>(found.size()), static_cast<double>(whole.size()), 20);
  const auto same = std::ranges::count_if(whole, [&](const Note& note) {
    return std::ranges::count_if(found, [&](const Note& each) { return isSame(each, note); }) == 1;
  });
  EXPECT_GT(same, std::ssize(whole) * 99 / 100) << "of " << whole.size();
  EXPECT_TRUE(std::ranges::is_sorted(both.doubtful, {}, &Note::onset));
  for (const Note& doubtful : both.doubtful)
    for (const Note& note : found)
      EXPECT_FALSE(note.pitch == doubtful.pitch && note.onset < doubtful.end &&
                   doubtful.onset < note.end)
          << note.pitch << " from " << note.onset;
}

/// It sounds from before the second window begins to after the first one ends.
TEST(PreciseWindows, haveANoteThatRingsThroughBoth) {
  Sound sound = repeated(kStrums, 640);
  for (std::size_t i = 585 * 44100; i < 620 * 44100; ++i) {
    const double t = static_cast<double>(i) / 44100;
    double sum = 0;
    for (int h = 1; h < 6; ++h) sum += std::sin(2 * std::numbers::pi * 110 * h * t) / h;
    sound[i] = static_cast<float>(0.2 * sum);
  }
  const Findings found = heardInWindows(sound);
  EXPECT_TRUE(std::ranges::any_of(found.notes, [](const Note& each) {
    return each.pitch == 45 && each.onset < 586 && each.end > 615;
  }));
}

}  // namespace
}  // namespace korvel::precise
