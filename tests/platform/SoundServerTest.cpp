// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/sound/SoundServer.h"

#include "support/SaidBy.h"
#include "support/Testing.h"
#include "support/sound/VirtualSoundCard.h"

namespace korvel::platform {
namespace {

using test::eventually;
using Names = std::vector<std::string>;

struct Frame {
  std::int16_t left = 0, right = 0;
  bool operator==(const Frame&) const = default;
};

constexpr std::uint32_t kBytes = 32768;
constexpr std::size_t kFrames = kBytes / sizeof(Frame);

/// A frame that tells which one it is, and is never silent.
Frame frame(std::size_t index) {
  return {static_cast<std::int16_t>(1 + index % 32000),
          static_cast<std::int16_t>(1 + index / 32000)};
}

void enqueueBuffers(AudioQueue& queue) {
  for (int i = 0; i < 3; ++i) queue.enqueue(queue.allocateBuffer(kBytes));
}

/// Records what is not silent, as long as there is room.
class Tape {
 public:
  Tape(const std::string& device, std::size_t frames) : m_kept(frames) {
    m_queue = m_server.newInput(device, kLiveSound, [this](auto& buffer, auto& start, auto count) {
      EXPECT_EQ(start.sampleTime, static_cast<double>(m_heard));
      m_heard += count;
      keep(buffer.sound());
      m_queue->enqueue(buffer);
    });
    enqueueBuffers(*m_queue);
    m_queue->onRunningChanged([this] { ++m_changes; });
    start();
  }

  void start() {
    m_heard = 0;
    m_queue->start();
  }
  AudioQueue& queue() { return *m_queue; }
  std::size_t heard() const { return m_heard; }
  std::size_t size() const { return m_size; }
  const Frame& operator[](std::size_t index) const { return m_kept[index]; }
  int changes() const { return m_changes; }

 private:
  void keep(std::span<const std::byte> sound) {
    std::size_t size = m_size;
    for (std::size_t at = 0; at < sound.size() && size < m_kept.size(); at += sizeof(Frame)) {
      std::memcpy(&m_kept[size], &sound[at], sizeof(Frame));
      if (m_kept[size] != Frame{}) ++size;
    }
    m_size = size;
  }

  SoundServer m_server;
  std::vector<Frame> m_kept;
  std::atomic<std::size_t> m_heard = 0, m_size = 0;
  std::atomic<int> m_changes = 0;
  std::unique_ptr<AudioQueue> m_queue;
};

/// Plays so many frames, then nothing.
class Player {
 public:
  Player(const std::string& device, std::size_t frames) : m_frames(frames) {
    m_queue = m_server.newOutput(device, kLiveSound, [this](auto& buffer) { fill(buffer); });
    for (int i = 0; i < 3; ++i) fill(m_queue->allocateBuffer(kBytes));
    m_queue->onRunningChanged([this] { ++m_changes; });
    m_queue->start();
  }

  AudioQueue& queue() { return *m_queue; }
  int changes() const { return m_changes; }

 private:
  void fill(QueueBuffer& buffer) {
    if (m_next == m_frames) return;
    std::size_t at = 0;
    for (; at < buffer.data.size() && m_next < m_frames; at += sizeof(Frame)) {
      const Frame next = frame(m_next++);
      std::memcpy(&buffer.data[at], &next, sizeof next);
    }
    buffer.dataByteSize = static_cast<std::uint32_t>(at);
    m_queue->enqueue(buffer);
  }

  SoundServer m_server;
  const std::size_t m_frames;
  std::size_t m_next = 0;
  std::atomic<int> m_changes = 0;
  std::unique_ptr<AudioQueue> m_queue;
};

struct SoundServerTest : testing::Test {
  void SetUp() override { m_card.emplace(); }

  std::optional<test::VirtualSoundCard> m_card;
  SoundServer m_server;
};

TEST_F(SoundServerTest, listsDevicesByTheNamesOfTheDesktop) {
  m_card->plug("left", "Twin Amp");
  m_card->plug("right", "Twin Amp");
  EXPECT_EQ(m_server.outputs(), (Names{"System default", "Card", "Twin Amp", "Twin Amp (2)"}));
  EXPECT_EQ(m_server.inputs(), (Names{"System default", "Monitor of Card", "Monitor of Twin Amp",
                                      "Monitor of Twin Amp (2)"}));
  m_card->unplug("left");
  m_card->unplug("right");
  EXPECT_EQ(
      test::saidBy<AudioError>([&] { m_server.newOutput("Twin Amp", kLiveSound, [](auto&) {}); }),
      "no sound output \"Twin Amp\"; there is \"System default\", \"Card\"");
}

TEST_F(SoundServerTest, whatIsPlayedIsHeardUnchanged) {
  constexpr std::size_t kPlayed = 10 * kFrames + 1234;
  Tape tape("Monitor of Card", kPlayed + 1);
  Player player("Card", kPlayed);
  double time = 0;
  ASSERT_TRUE(eventually([&] {
    EXPECT_GE(player.queue().currentTime().sampleTime, time) << "time runs forward";
    time = player.queue().currentTime().sampleTime;
    return tape.size() >= kPlayed && time > kPlayed;
  }));
  tape.queue().stop();
  player.queue().stop();
  EXPECT_EQ(tape.size(), kPlayed);
  std::size_t wrong = 0;
  for (std::size_t i = 0; i < kPlayed; ++i) wrong += tape[i] != frame(i);
  EXPECT_EQ(wrong, 0U);
  EXPECT_FALSE(player.queue().isLost());
  EXPECT_EQ(player.changes(), 2);
}

TEST_F(SoundServerTest, aQueueCanStopAndStartAgain) {
  Tape tape("", 100 * kFrames);
  for (int i = 0; i < 3; ++i) {
    ASSERT_TRUE(eventually([&] { return tape.heard() > 0; }));
    tape.queue().stop();
    EXPECT_FALSE(tape.queue().isRunning());
    EXPECT_GE(tape.queue().currentTime().sampleTime, static_cast<double>(tape.heard()));
    if (i < 2) tape.start();
  }
  EXPECT_EQ(tape.changes(), 6);
}

TEST_F(SoundServerTest, anUnpluggedDeviceIsLostAndTheDefaultOneGoesOn) {
  m_card->plug("amp", "Amp");
  Tape tape("Monitor of Amp", 100 * kFrames), other("System default", kFrames);
  Player player("Amp", 1000 * kFrames);
  ASSERT_TRUE(eventually([&] { return tape.size() > 0; }));
  m_card->unplug("amp");
  ASSERT_TRUE(eventually([&] { return !tape.queue().isRunning() && !player.queue().isRunning(); }));
  EXPECT_TRUE(tape.queue().isLost());
  EXPECT_TRUE(player.queue().isLost());
  EXPECT_EQ(tape[0], frame(0)) << "what was recorded is kept";
  const std::size_t heard = other.heard();
  EXPECT_TRUE(eventually([&] { return other.heard() > heard; }));
  EXPECT_TRUE(other.queue().isRunning());
  EXPECT_TRUE(eventually([&] { return tape.changes() == 2 && player.changes() == 2; }));
  EXPECT_EQ(test::saidBy<AudioError>([&] { player.queue().start(); }),
            "no sound output \"Amp\"; there is \"System default\", \"Card\"");
}

TEST_F(SoundServerTest, queuesEndWithTheirServer) {
  Tape tape("Monitor of Card", 100 * kFrames);
  Player player("", 1000 * kFrames);
  ASSERT_TRUE(eventually([&] { return tape.size() > 0; }));
  m_card->killServer();
  ASSERT_TRUE(eventually([&] { return tape.queue().isLost() && player.queue().isLost(); }));
  EXPECT_EQ(tape[0], frame(0));
  player.queue().stop();
  EXPECT_TRUE(eventually([&] { return tape.changes() == 2 && player.changes() == 2; }));
}

}  // namespace
}  // namespace korvel::platform
