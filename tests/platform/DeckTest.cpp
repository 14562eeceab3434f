// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/deck/Deck.h"
#include "platform/files/FileError.h"
#include "platform/midi/MusicPlayer.h"
#include "support/Allocations.h"
#include "support/Testing.h"
#include "support/sound/FfmpegTool.h"
#include "support/sound/Guitar.h"
#include "support/sound/HandAudio.h"
#include "support/store/FileSizeLimit.h"
#include "support/store/ScratchFolder.h"

namespace korvel::platform {
namespace {

constexpr double kSecond = kSampleRate;

/// Silent, and tells how often notes were struck.
class Strikes final : public Synthesizer {
 public:
  explicit Strikes(std::vector<std::int64_t>& frames) : m_strikes(frames) {}
  void noteOn(const MidiNoteMessage&) override { m_strikes.push_back(m_frame); }
  void noteOff(const MidiNoteMessage&) override {}
  void channelMessage(const MidiChannelMessage&) override {}
  void render(std::span<std::int16_t> samples) override {
    std::ranges::fill(samples, std::int16_t{0});
    m_frame += static_cast<std::int64_t>(samples.size() / kChannels);
  }
  void silence() override {}

 private:
  std::vector<std::int64_t>& m_strikes;
  std::int64_t m_frame = 0;
};

struct DeckTest : testing::Test {
  /// Mono samples as a file, all of which is decoded.
  const DecodedSound& sound(const std::vector<std::int16_t>& samples) {
    test::writeWav(m_file, samples);
    m_sound = std::make_shared<DecodedSound>(m_file);
    while (!m_sound->isWhole()) std::this_thread::yield();
    return *m_sound;
  }
  /// A low string every second, from second 1 on.
  static std::vector<std::int16_t> plucks(int seconds) {
    std::vector<std::int16_t> samples(static_cast<std::size_t>(seconds) * kSampleRate);
    for (std::size_t i = kSampleRate; i < samples.size(); ++i) {
      const double t = static_cast<double>(i % kSampleRate) / kSecond;
      double value = 0;
      for (int k = 1; k <= 8; ++k) value += std::sin(2 * M_PI * 110 * k * t) / k;
      samples[i] = static_cast<std::int16_t>(9000 * value * std::exp(-6 * t));
    }
    return samples;
  }
  /// What is heard on the left, and the places of the frames.
  struct Heard {
    std::vector<float> sound;
    std::vector<double> beats;
  };
  static Heard hear(DeckTape& tape, double seconds) {
    Heard heard;
    const auto block = std::make_unique<DeckBlock>();
    while (static_cast<double>(heard.sound.size()) < seconds * kSecond) {
      EXPECT_TRUE(tape.next(*block));
      for (std::size_t i = 0; i < block->span.frames; ++i) {
        heard.sound.push_back(block->sound[2 * i]);
        heard.beats.push_back(block->span.beat +
                              static_cast<double>(i) * block->span.beatsPerFrame);
      }
    }
    return heard;
  }
  static float largestStep(std::span<const float> sound) {
    float largest = 0;
    for (std::size_t i = 1; i < sound.size(); ++i)
      largest = std::max(largest, std::abs(sound[i] - sound[i - 1]));
    return largest;
  }

  test::ScratchFolder m_folder;
  std::string m_file = m_folder.file("sound.wav");
  std::shared_ptr<const DecodedSound> m_sound;
};

TEST_F(DeckTest, everyPlaceIsHeardWhereTheMarkIsAtEachSpeed) {
  const DecodedSound& recording = sound(plucks(5));
  for (const double rate : {0.25, 0.5, 0.77, 1.0, 1.5})
    for (const double pitch : {1.0, std::exp2(rate == 0.5 ? -1.0 / 12 : 0)}) {
      DeckTape tape(&recording, {});
      tape.setRate(rate);
      tape.setPitch(pitch);
      tape.seek(0.4, 1);
      const Heard heard = hear(tape, 4 / rate);
      for (int second = 1; second <= 3; ++second) {
        const auto at = std::ranges::lower_bound(heard.beats, second) - heard.beats.begin();
        const auto near = std::span(heard.sound).subspan(static_cast<std::size_t>(at) - 4410, 8820);
        const float loudest = std::max(std::ranges::max(near), -std::ranges::min(near));
        const auto onset = std::ranges::find_if(
            near, [&](float sample) { return std::abs(sample) > loudest / 2; });
        EXPECT_NEAR(static_cast<double>(onset - near.begin() - 4410), 0, 0.02 * kSecond)
            << rate << " " << pitch << " " << second;
        EXPECT_GT(loudest, 0.2F) << rate;
      }
    }
}

TEST_F(DeckTest, loopsTurnToTheFrameWithoutAClickAndGetFaster) {
  std::vector<std::int16_t> samples = plucks(1);
  for (int i = 0; i < 8 * kSampleRate; ++i)
    samples.push_back(static_cast<std::int16_t>(14000 * std::sin(2 * M_PI * 196.3 * i / kSecond)));
  const DecodedSound& recording = sound(samples);
  for (const double rate : {0.5, 1.0, 1.3})
    for (const double again : {2.0, 1.7}) {
      DeckTape tape(&recording, {0, 2, 1e9, Rounds{2, 2.61, again, SpeedRamp{0.6, 0.2, 1}}});
      tape.setRate(rate);
      tape.seek(2.1, 1);
      Heard heard = hear(tape, 5 / rate);
      const double own = 14000.0 / 32768 * 2 * M_PI * 196.3 / kSecond;
      EXPECT_LT(largestStep(std::span(heard.sound).subspan(2000)), own * 1.25)
          << rate << " " << again;
      std::vector<std::size_t> turns;
      for (std::size_t i = 1; i < heard.beats.size(); ++i)
        if (heard.beats[i] < heard.beats[i - 1]) turns.push_back(i);
      ASSERT_GE(turns.size(), 4U);
      const auto secondsOfRound = [&](std::size_t round) {
        return static_cast<double>(turns[round + 1] - turns[round]) / kSecond;
      };
      EXPECT_NEAR(secondsOfRound(0), (2.61 - again) / (0.8 * rate), 1e-4);
      EXPECT_NEAR(secondsOfRound(2), (2.61 - again) / rate, 1e-4) << "no faster than it is set";
    }
}

TEST_F(DeckTest, synthesiserStrikesInStep) {
  sound(plucks(6));
  test::HandAudio audio;
  std::vector<std::int64_t> strikes;
  MusicSequence sequence;
  MusicTrack& track = sequence.newTrack();
  for (int second = 1; second < 6; ++second) track.addNote(second, {0, 60, 50, 20, 0.2F});
  MusicPlayer player(audio, "", std::make_unique<Strikes>(strikes));
  player.setSequence(sequence);
  player.setDeck(std::make_unique<Deck>(m_sound, DeckPlan{}));
  player.setPlayRateScalar(0.5);
  player.setTime(0.9);
  player.start();
  const auto playFor = [&](double seconds) {
    for (int i = 0; i < seconds * kSecond / 512; ++i) {
      ASSERT_TRUE(player.deck()->awaitAhead(std::chrono::seconds(20)));
      audio.play(512);
    }
  };
  playFor(2);
  EXPECT_NEAR(player.time(), 1.9, 0.01);
  ASSERT_EQ(strikes.size(), 1U);
  const auto heard = audio.heard();
  const auto onset = std::ranges::find_if(heard, [](int sample) { return sample > 6000; });
  EXPECT_NEAR(static_cast<double>(strikes.front()), static_cast<double>(onset - heard.begin()) / 2,
              0.02 * kSecond);
  player.setTime(4.95);
  EXPECT_EQ(player.time(), 4.95);
  playFor(0.5);
  EXPECT_NEAR(player.time(), 5.18, 0.03);
  EXPECT_EQ(strikes.size(), 2U);
}

TEST_F(DeckTest, audioThreadAllocatesNothingAndStandsStillWhereNothingWaits) {
  sound(plucks(3));
  Deck deck(m_sound, {0, 0, 1e9, Rounds{1, 1.2, 0.9}});
  std::vector<std::int64_t> strikes;
  strikes.reserve(1000);
  Strikes synthesizer(strikes);
  SequenceRenderer renderer(synthesizer);
  DeckOutput output(deck.ring(), renderer, synthesizer);
  PlayTimeline timeline;
  const MusicEvents events{{1.1, MidiNoteMessage{0, 60, 50, 20, 0.01F}}};
  renderer.use(events);
  deck.setRate(0.5);
  std::array<std::int16_t, 1024> buffer{};
  int allocated = 0;
  std::uint64_t frames = 0;
  const auto render = [&] {
    const int before = test::allocations();
    output.render(buffer, timeline, frames);
    allocated += test::allocations() - before;
    frames += buffer.size() / 2;
  };
  render();
  EXPECT_EQ(timeline.at(1e6)->beat, 0) << "not begun";
  for (std::uint32_t seek = 1; seek <= 3; ++seek) {
    deck.seek(0.9, seek);
    for (int i = 0; i < 100; ++i) {
      if (!deck.awaitAhead(std::chrono::seconds(20))) FAIL();
      render();
      if (i == 50) output.setLevels({0.5F, 0, seek == 2});
    }
  }
  EXPECT_EQ(allocated, 0);
  EXPECT_EQ(strikes.size(), 6U) << "the loop's third turn is a second away";
}

TEST_F(DeckTest, aFileThatEndsEarlyOrIsNoneIsTold) {
  EXPECT_THROW(DecodedSound(m_folder.file("none.wav")), FileError);
  test::writeFile(m_file, "no sound");
  EXPECT_THROW(DecodedSound{m_file}, FileError);
  const std::string mp3 = m_folder.file("tone.mp3");
  test::encode({.seconds = 2, .channels = 2}, mp3);
  std::string bytes = test::readFile(mp3);
  test::writeFile(mp3, bytes.substr(0, bytes.size() / 2));
  const DecodedSound half(mp3);
  while (!half.isWhole()) std::this_thread::yield();
  EXPECT_NEAR(static_cast<double>(half.frames()), kSecond, 0.1 * kSecond);
  DeckTape tape(&half, {});
  tape.seek(0.9, 1);
  const Heard heard = hear(tape, 1);
  EXPECT_EQ(heard.sound.back(), 0) << "silence follows";

  test::writeWav(m_file, std::vector<std::int16_t>(2 * kSampleRate, 900));
  const test::FileSizeLimit disk(100000);
  const DecodedSound cut(m_file);
  while (!cut.isWhole()) std::this_thread::yield();
  EXPECT_GT(cut.frames(), 0);
  EXPECT_LE(cut.frames(), 100000 / 4);
  EXPECT_NE(cut.problem().english().find("cannot write"), std::string::npos)
      << cut.problem().english();
}

}  // namespace
}  // namespace korvel::platform
