// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/Engine.h"

#include "precise/Observer.h"
#include "precise/judging/Company.h"
#include "precise/striking/StrikeNet.h"
#include "support/Testing.h"
#include "support/sound/Guitar.h"

namespace korvel::precise {
namespace {

using Sound = std::vector<float>;
constexpr std::size_t kSecond = 44100;

Sound soundOf(const std::vector<std::int16_t>& samples) {
  Sound sound;
  for (const std::int16_t sample : samples) sound.push_back(static_cast<float>(sample) / 32768);
  return sound;
}

/// Half a second of silence, then the strums.
Sound strummed(std::vector<test::Strum> strums) {
  strums.insert(strums.begin(), {{}, 0.5});
  return soundOf(test::play(strums));
}

/// What a formula of the time in seconds answers.
template <class Formula>
Sound drawn(double seconds, const Formula& formula) {
  Sound sound(static_cast<std::size_t>(seconds * kSecond));
  for (std::size_t i = 0; i < sound.size(); ++i)
    sound[i] = static_cast<float>(formula(static_cast<double>(i) / kSecond));
  return sound;
}

double sine(double frequency, double t) { return std::sin(2 * std::numbers::pi * frequency * t); }

Analysis listen(const Sound& sound, double sensitivity = 0.5) {
  Engine engine(sensitivity);
  engine.add(sound);
  while (engine.step()) continue;
  return engine.take();
}

std::multiset<int> pitches(const Analysis& analysis) {
  std::multiset<int> found;
  for (const Note& note : analysis.notes) found.insert(note.pitch);
  return found;
}

TEST(PreciseEngine, hearsSingleNotesWhereTheyAre) {
  std::vector<test::Strum> strums;
  const std::vector<int> played = {40, 45, 52, 59, 64, 70, 76, 81, 86};
  for (const int pitch : played) strums.push_back({{pitch}, 0.8});
  const Analysis analysis = listen(strummed(strums));
  ASSERT_EQ(analysis.notes.size(), played.size());
  for (std::size_t i = 0; i < played.size(); ++i) {
    const Note& note = analysis.notes[i];
    const double onset = 0.5 + 0.8 * static_cast<double>(i);
    EXPECT_EQ(note.pitch, played[i]);
    EXPECT_NEAR(note.onset, onset, 0.03) << note.pitch;
    EXPECT_NEAR(note.end, onset + 0.8, 0.1) << note.pitch;
    EXPECT_EQ(note.string, -1);
    EXPECT_GT(note.probability, 0.5F);
    EXPECT_FLOAT_EQ(note.amplitude, static_cast<float>(analysis.amplitude(note.strength)));
  }
}

// An octave or a twelfth above others is soon lost among their partials.
TEST(PreciseEngine, holdsFaintNotesOfAChordUntilItIsStopped) {
  for (const char* shape : {"x02220", "022100", "133211", "x24432"}) {
    const std::vector<int> played = test::notesOf(shape);
    const Analysis analysis = listen(strummed({{played, 2.5}, {{}, 0.8}}));
    for (const int pitch : played) {
      const auto note = std::ranges::find(analysis.notes, pitch, &Note::pitch);
      ASSERT_NE(note, analysis.notes.end()) << shape << ' ' << pitch;
      EXPECT_NEAR(note->end, 3.0, 0.12) << shape << ' ' << pitch;
    }
  }
}

// What a room adds to a note that was stopped, half a second of it, is none of the note.
TEST(PreciseEngine, endsNotesThatRingOnInARoom) {
  std::vector<test::Strum> strums;
  for (const int pitch : {52, 59, 64, 57, 62, 50}) {
    strums.push_back({{pitch}, 0.5});
    strums.push_back({{}, 0.6});
  }
  const Sound dry = strummed(strums);
  std::mt19937 random(4);
  std::normal_distribution<float> noise(0, 1);
  Sound room = dry;
  for (int i = 0; i < 400; ++i) {
    const double delay = 0.01 + 0.5 * i / 400;
    const float gain = 0.02F * noise(random) * static_cast<float>(std::pow(10, -3 * delay / 0.5));
    const auto samples = static_cast<std::size_t>(delay * kSecond);
    for (std::size_t n = samples; n < dry.size(); ++n) room[n] += gain * dry[n - samples];
  }
  for (const Note& note : listen(room).notes) {
    const double since = std::fmod(note.end - 0.5, 1.1);
    EXPECT_NEAR(since, 0.5, 0.12) << note.pitch;
  }
}

TEST(PreciseEngine, followsTheTuningOfTheRecording) {
  Sound sound = strummed({{{45}, 1}, {{57}, 1}, {{64}, 1}});
  // Reading the samples 2 % faster raises the pitch by 34 cents.
  for (std::size_t i = 0; i < sound.size(); ++i) {
    const double place = 1.02 * static_cast<double>(i);
    const auto at = static_cast<std::size_t>(place);
    if (at + 1 >= sound.size()) sound.resize(i);
    if (at + 1 < sound.size())
      sound[i] = std::lerp(sound[at], sound[at + 1], static_cast<float>(place - std::floor(place)));
  }
  const Analysis analysis = listen(sound);
  EXPECT_NEAR(analysis.tuningOffset, 34.3, 3);
  EXPECT_EQ(pitches(analysis), (std::multiset<int>{45, 57, 64}));
}

TEST(PreciseEngine, hearsQuietRecordingsAsLoudOnes) {
  const Sound loud = strummed({{test::notesOf("x32010"), 1}, {{67}, 0.5}, {{65}, 0.5}});
  const Analysis expected = listen(loud);
  Sound quiet = loud;
  for (float& sample : quiet) sample *= 0.001F;
  const Analysis found = listen(quiet);
  EXPECT_NEAR(found.ref, 0.001 * expected.ref, 1e-5 * expected.ref);
  ASSERT_EQ(found.notes.size(), expected.notes.size());
  for (std::size_t i = 0; i < found.notes.size(); ++i) {
    EXPECT_EQ(found.notes[i].pitch, expected.notes[i].pitch);
    EXPECT_EQ(found.notes[i].onset, expected.notes[i].onset);
    EXPECT_NEAR(found.notes[i].strength, expected.notes[i].strength, 0.01);
  }
}

TEST(PreciseEngine, answersTheSameForAnySlices) {
  const Sound sound = strummed({{test::notesOf("022100"), 1.5}, {{57, 64}, 1}, {{57}, 1}});
  const Analysis expected = listen(sound);
  for (const std::size_t piece : {std::size_t{1}, std::size_t{997}, sound.size()}) {
    Engine engine;
    for (std::size_t i = 0; i < sound.size(); i += piece)
      engine.add(std::span(sound).subspan(i, std::min(piece, sound.size() - i)));
    double progress = 0;
    while (engine.step(piece == 997 ? 0.01 : 100.0 * static_cast<double>(piece))) {
      EXPECT_GE(engine.progress(), progress);
      progress = engine.progress();
      EXPECT_LT(progress, 1);
    }
    EXPECT_DOUBLE_EQ(engine.progress(), 1);
    const Analysis found = engine.take();
    EXPECT_TRUE(std::ranges::equal(found.activations.values(), expected.activations.values()));
    ASSERT_EQ(found.notes.size(), expected.notes.size());
    for (std::size_t i = 0; i < found.notes.size(); ++i) {
      EXPECT_EQ(found.notes[i].onset, expected.notes[i].onset);
      EXPECT_EQ(found.notes[i].probability, expected.notes[i].probability);
    }
  }
}

/// Counts what the formulas decide on, and what they make of the re-attacks.
struct Counts final : Observer {
  void tracked(std::span<const Candidate> candidates) override { all = candidates.size(); }
  void reattack(const Candidate&, const StrikeInputs::Inputs& known) override {
    ++(isStruckAgain(known) ? struckAgain : joined);
  }
  void note(const Candidate& candidate, const Features<NoteFeature>& known) override {
    ++judged;
    if (candidate.probability == logistic(noteTerms(), known)) ++explained;
    if (probabilityInCompany(known) > 0.5) probable.insert(pitchOf(candidate));
  }
  void onset(const Candidate&, const OnsetInputs&) override { ++begun; }
  void frame(const Candidate&, Frame, const EndInputs::Inputs&) override { ++frames; }

  static int pitchOf(const Candidate& candidate) {
    return static_cast<int>(candidate.pitch) + Analysis::kLowestPitch;
  }

  std::size_t all = 0, struckAgain = 0, joined = 0, judged = 0, explained = 0, begun = 0;
  std::size_t frames = 0;
  std::multiset<int> probable;
};

TEST(PreciseEngine, showsWhatItDecidesOn) {
  Counts counts;
  Engine engine(0.5, &counts);
  engine.add(strummed({{{45, 52, 57}, 0.6}, {{45, 52, 57}, 0.6}, {{40}, 1.0}}));
  while (engine.step()) continue;
  EXPECT_GE(counts.struckAgain, 2U);
  EXPECT_EQ(counts.judged, counts.all - counts.joined);
  EXPECT_EQ(counts.explained, counts.judged);
  EXPECT_EQ(counts.begun, counts.probable.size());
  EXPECT_EQ(counts.probable, pitches(engine.take()));
}

// What one sensitivity takes for a note, a lower one doubts, unless it hears its pitch all the
// time.
TEST(PreciseEngine, handsOutWhatItDoubts) {
  Sound noisy = strummed({{test::notesOf("x02210"), 0.5}, {test::notesOf("133211"), 0.5}});
  std::mt19937 random(2);
  std::normal_distribution<float> noise(0, 0.1F);
  for (float& sample : noisy) sample += noise(random);
  const Analysis strict = listen(noisy, 0);
  const Analysis lenient = listen(noisy, 1);
  ASSERT_LT(strict.notes.size(), lenient.notes.size());
  EXPECT_TRUE(std::ranges::is_sorted(strict.doubtful, {}, &Note::onset));
  for (const Note& note : strict.doubtful) {
    EXPECT_GE(note.probability, 0.05F);
    EXPECT_EQ(note.string, -1);
  }
  for (const Note& note : lenient.notes) {
    const auto isSame = [&](const Note& other) {
      return other.pitch == note.pitch && other.onset <= note.onset && other.end > note.onset;
    };
    EXPECT_EQ(std::ranges::count_if(strict.notes, isSame) +
                  std::ranges::count_if(strict.doubtful, isSame),
              1)
        << note.pitch << " at " << note.onset;
  }
}

TEST(PreciseEngine, hearsNothingWhereNothingSounds) {
  std::mt19937 random(1);
  std::uniform_real_distribution<double> dither(-1, 1);
  const auto rounded = [](double value) { return std::round(32768 * value) / 32768; };
  Sound click(3 * kSecond);
  click[kSecond] = 1;
  const double none = std::numeric_limits<double>::quiet_NaN();
  const std::vector<Sound> sounds = {
      {},
      {0.5F},
      Sound(kSecond / 10),
      Sound(3 * kSecond),
      Sound(3 * kSecond, 0.5F),
      click,
      drawn(3, [&](double) { return rounded(dither(random) / 32768); }),
      drawn(3, [](double t) { return 0.5 * sine(1, t); }),
      drawn(3, [&](double t) { return rounded(0.5 * sine(20000, t)); }),
      drawn(3, [none](double) { return none; }),
  };
  for (std::size_t i = 0; i < sounds.size(); ++i) {
    const Analysis analysis = listen(sounds[i]);
    EXPECT_TRUE(analysis.notes.empty()) << i;
    EXPECT_EQ(analysis.frames, (sounds[i].size() + 511) / 512) << i;
    EXPECT_EQ(analysis.activations.frames(), analysis.frames) << i;
  }
}

TEST(PreciseEngine, hearsThroughShortnessClippingAndOffsets) {
  const auto tone = [](double t) { return sine(220, t) + 0.5 * sine(440, t) + 0.2 * sine(660, t); };
  const double infinite = std::numeric_limits<double>::infinity();
  const std::vector<Sound> sounds = {
      drawn(0.1, tone),
      drawn(2, [&](double t) { return std::clamp(4 * tone(t), -1.0, 1.0); }),
      drawn(2, [&](double t) { return 0.4 + 0.1 * tone(t); }),
      drawn(2, [&](double t) { return 1e30 * tone(t); }),
      drawn(2, [&](double t) { return t < 0.001 ? infinite : tone(t); }),
  };
  for (std::size_t i = 0; i < sounds.size(); ++i) {
    const auto found = pitches(listen(sounds[i]));
    EXPECT_TRUE(found.contains(57)) << i;
    EXPECT_LE(found.size(), 2U) << i;
  }
}

TEST(PreciseEngine, findsMoreTheMoreSensitiveItIs) {
  std::vector<test::Strum> strums;
  for (const char* shape : {"x02210", "133211", "x32010", "320003", "022100", "xx0232"})
    strums.push_back({test::notesOf(shape), 0.5});
  const Sound clear = strummed(strums);
  std::mt19937 random(2);
  std::size_t strict = 0;
  std::size_t middle = 0;
  std::size_t lenient = 0;
  for (const float loudness : {0.03F, 0.06F, 0.1F, 0.15F, 0.2F, 0.3F}) {
    Sound noisy = clear;
    std::normal_distribution<float> noise(0, loudness);
    for (float& sample : noisy) sample += noise(random);
    strict += listen(noisy, 0).notes.size();
    middle += listen(noisy).notes.size();
    lenient += listen(noisy, 1).notes.size();
  }
  EXPECT_LT(strict, middle);
  EXPECT_LT(middle, lenient);
}

}  // namespace
}  // namespace korvel::precise
