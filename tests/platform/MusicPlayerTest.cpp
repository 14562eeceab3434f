// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/midi/MusicPlayer.h"

#include "support/Testing.h"
#include "support/sound/HandAudio.h"

namespace korvel::platform {
namespace {

constexpr double kRate = Synthesizer::kSampleRate;
constexpr std::size_t kBufferFrames = 512;

/// Each held note adds its own number to every sample; the program adds a thousand each.
class Adder final : public Synthesizer {
 public:
  void noteOn(const MidiNoteMessage& note) override { m_sum += note.note; }
  void noteOff(const MidiNoteMessage& note) override { m_sum -= note.note; }
  void channelMessage(const MidiChannelMessage& message) override { m_program = message.data1; }
  void render(std::span<std::int16_t> samples) override {
    std::ranges::fill(samples, static_cast<std::int16_t>(m_sum + 1000 * m_program));
  }
  void silence() override { m_sum = 0; }

 private:
  int m_sum = 0, m_program = 0;
};

struct MusicPlayerTest : testing::Test {
  MusicPlayerTest() { m_player.setSequence(m_sequence); }

  void add(int start, int frames, std::uint8_t note) {
    m_track.addNote(start / kRate, {0, note, 50, 20, static_cast<float>(frames / kRate)});
  }
  /// Of the left channel.
  std::int16_t heardAt(std::size_t frame) const { return m_audio.heard().at(2 * frame); }
  double frame() const { return m_player.time() * kRate; }

  test::HandAudio m_audio;
  MusicSequence m_sequence;
  MusicTrack& m_track = m_sequence.newTrack();
  MusicPlayer m_player{m_audio, "", std::make_unique<Adder>()};
};

TEST_F(MusicPlayerTest, timeIsWhatIsHeardNow) {
  add(1000, 500, 7);
  m_player.start();
  EXPECT_TRUE(m_player.isPlaying());
  EXPECT_EQ(frame(), 0);
  m_audio.play(kBufferFrames);
  EXPECT_NEAR(frame(), 512, 1e-6);
  m_player.setPlayRateScalar(0.5);
  m_audio.play(3 * kBufferFrames);
  EXPECT_NEAR(frame(), 2048, 1e-6) << "four buffers were on their way";
  m_audio.play(4 * kBufferFrames);
  EXPECT_NEAR(frame(), 2048 + 512 + 3 * 256, 1e-6);
  EXPECT_EQ(heardAt(999), 0);
  EXPECT_EQ(heardAt(1000), 7);
  EXPECT_EQ(heardAt(1499), 7);
  EXPECT_EQ(heardAt(1500), 0);
  m_player.stop();
  EXPECT_FALSE(m_player.isPlaying());
  EXPECT_NEAR(frame(), 2048 + 512 + 3 * 256, 1e-6) << "stopped where it was";
}

TEST_F(MusicPlayerTest, seeksAndNewEventsArriveWithTheNextBuffer) {
  add(0, 100000, 7);
  add(50000, 100, 9);
  m_player.start();
  m_audio.play(kBufferFrames);
  m_track.addChannelEvent(0, {0xC0, 2, 0});
  m_player.setTime(50000 / kRate);
  EXPECT_NEAR(frame(), 50000, 1e-6) << "not heard yet, but sure to come";
  m_audio.play(6 * kBufferFrames);
  EXPECT_EQ(heardAt(5 * kBufferFrames - 1), 7);
  EXPECT_EQ(heardAt(5 * kBufferFrames + 50), 2009 + 2007 * 206 / 256)
      << "and what was heard fades out";
  EXPECT_EQ(heardAt(5 * kBufferFrames + 300), 2000);
  EXPECT_NEAR(frame(), 51024, 1e-6);
}

TEST_F(MusicPlayerTest, stopsWhenTheDeviceIsLostAndCanStartAgain) {
  add(0, 100000, 7);
  m_player.start();
  m_audio.play(2 * kBufferFrames);
  m_audio.lose();
  EXPECT_FALSE(m_player.isPlaying());
  EXPECT_TRUE(m_player.isLost());
  m_player.stop();
  EXPECT_TRUE(m_player.isLost());
  EXPECT_NEAR(frame(), 1024, 1e-6);
  m_player.start();
  EXPECT_FALSE(m_player.isLost());
  m_audio.play(kBufferFrames);
  EXPECT_NEAR(frame(), 1536, 1e-6);
  EXPECT_THROW(MusicPlayer(m_audio, "Boombox", std::make_unique<Adder>()).start(), AudioError);
}

/// What the thread sanitizer looks at.
TEST_F(MusicPlayerTest, ordersReachTheAudioThreadWhileItPlays) {
  add(0, 100, 7);
  m_player.start();
  std::atomic<bool> over = false;
  std::thread device([&] {
    while (!over) m_audio.play(kBufferFrames);
  });
  std::uint8_t program = 0;
  for (int i = 0; i < 200; ++i) {
    m_player.setPlayRateScalar(i % 3 * 0.5);
    m_player.setTime(i);
    m_track.addChannelEvent(i, {0xC0, ++program %= 4, 0});
    EXPECT_GE(m_player.time(), i);
  }
  m_player.setPlayRateScalar(1);
  while (m_player.time() < 200) continue;
  m_player.stop();
  over = true;
  device.join();
  EXPECT_GE(m_player.time(), 200);
}

}  // namespace
}  // namespace korvel::platform
