// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/sound/BufferQueue.h"

#include "platform/sound/AudioSystem.h"
#include "support/Testing.h"

namespace korvel::platform {
namespace {

using Samples = std::vector<std::int16_t>;

/// A device whose chunks the test takes and gives.
struct Device : BufferQueue {
  using BufferQueue::begin;
  using BufferQueue::BufferQueue;
  using BufferQueue::end;
  using BufferQueue::lose;

  void start() override { begin(); }
  void stop() override { end(); }
  AudioTimeStamp currentTime() const override { return {static_cast<double>(frames()), now()}; }

  void recorded(const Samples& chunk) { record(std::as_bytes(std::span(chunk))); }
  Samples played(std::size_t samples) {
    Samples chunk(samples, -1);
    play(std::as_writable_bytes(std::span(chunk)));
    return chunk;
  }
};

Samples samplesOf(std::span<const std::byte> bytes) {
  Samples samples(bytes.size() / 2);
  std::memcpy(samples.data(), bytes.data(), samples.size() * 2);
  return samples;
}

void put(const Samples& samples, QueueBuffer& buffer) {
  std::memcpy(buffer.data.data(), samples.data(), samples.size() * 2);
  buffer.dataByteSize = static_cast<std::uint32_t>(samples.size() * 2);
}

Samples counting(std::int16_t from, std::size_t count) {
  Samples samples(count);
  std::iota(samples.begin(), samples.end(), from);
  return samples;
}

TEST(BufferQueue, chunksOfAnySizeFillBuffersInTurn) {
  std::vector<std::pair<double, Samples>> filled;
  bool again = true;
  Device device(kLiveSound, [&](QueueBuffer& buffer, const AudioTimeStamp& start, auto packets) {
    filled.emplace_back(start.sampleTime, samplesOf(buffer.sound()));
    EXPECT_EQ(packets, 4U);
    if (again) device.enqueue(buffer);
  });
  for (int i = 0; i < 2; ++i) device.enqueue(device.allocateBuffer(18));  // 4 frames, and a half
  device.start();
  device.recorded(counting(0, 6));
  device.recorded(counting(6, 24));
  ASSERT_EQ(filled.size(), 3U);
  again = false;
  device.recorded(counting(30, 30));
  EXPECT_EQ(filled.size(), 5U) << "what finds no buffer is lost";
  for (std::size_t i = 0; i < filled.size(); ++i) {
    EXPECT_EQ(filled[i].first, 4.0 * static_cast<double>(i));
    EXPECT_EQ(filled[i].second, counting(static_cast<std::int16_t>(8 * i), 8));
  }
  EXPECT_EQ(device.currentTime().sampleTime, 30) << "and has passed all the same";
}

TEST(BufferQueue, buffersAreDrainedIntoChunksAndThenSilenceFollows) {
  std::int16_t next = 101;
  Device device(kLiveSound, [&](QueueBuffer& buffer) {
    if (next > 113) return;
    put(counting(next, 6), buffer);
    next = static_cast<std::int16_t>(next + 6);
    device.enqueue(buffer);
  });
  for (const Samples& part : {counting(1, 6), counting(7, 6)}) {
    QueueBuffer& buffer = device.allocateBuffer(12);
    put(part, buffer);
    device.enqueue(buffer);
  }
  device.start();
  EXPECT_EQ(device.played(8), counting(1, 8));
  EXPECT_EQ(device.played(4), counting(9, 4));
  EXPECT_EQ(device.played(20), (Samples{101, 102, 103, 104, 105, 106, 107, 108, 109, 110,
                                        111, 112, 113, 114, 115, 116, 117, 118, 0,   0}));
  EXPECT_EQ(device.played(2), (Samples{0, 0}));
}

TEST(BufferQueue, anEmptyBufferThatComesBackIsSilence) {
  Device device(kLiveSound, [&](QueueBuffer& buffer) { device.enqueue(buffer); });
  QueueBuffer& buffer = device.allocateBuffer(8);
  buffer.dataByteSize = 0;
  device.enqueue(buffer);
  device.start();
  EXPECT_EQ(device.played(4), (Samples{0, 0, 0, 0}));
  put({1, 2, 3, 4}, buffer);
  EXPECT_EQ(device.played(6), (Samples{1, 2, 3, 4, 1, 2}));
}

TEST(BufferQueue, volumeScalesWithinTheRangeOfSamples) {
  Device device(kLiveSound, [&](QueueBuffer& buffer) { device.enqueue(buffer); });
  QueueBuffer& buffer = device.allocateBuffer(8);
  put({1000, -1000, 32767, -32768}, buffer);
  device.enqueue(buffer);
  device.start();
  device.setVolume(0.5F);
  EXPECT_EQ(device.played(4), (Samples{500, -500, 16383, -16384}));
  device.setVolume(2);
  EXPECT_EQ(device.played(4), (Samples{2000, -2000, 32767, -32768}));
  EXPECT_EQ(samplesOf(buffer.sound()), (Samples{1000, -1000, 32767, -32768}));
}

TEST(BufferQueue, endsOnceAndIsSilentThen) {
  int played = 0;
  Device device(kLiveSound, [&](QueueBuffer&) { ++played; });
  std::string told;
  device.onRunningChanged([&] { told += device.isRunning() ? '+' : device.isLost() ? 'x' : '-'; });
  QueueBuffer& buffer = device.allocateBuffer(8);
  put({1, 2, 3, 4}, buffer);
  device.enqueue(buffer);
  device.lose();
  EXPECT_FALSE(device.isLost()) << "it does not run yet";
  device.start();
  device.lose();
  device.lose();
  EXPECT_EQ(device.played(6), (Samples{0, 0, 0, 0, 0, 0})) << "a lost device may still ask";
  EXPECT_EQ(played, 0);
  device.stop();
  device.start();
  EXPECT_EQ(device.played(2), (Samples{1, 2}));
  device.stop();
  EXPECT_EQ(told, "+x+-");
  device.reset();
  device.start();
  EXPECT_EQ(device.played(2), (Samples{0, 0})) << "what was enqueued is forgotten";
}

}  // namespace
}  // namespace korvel::platform
