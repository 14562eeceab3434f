// SPDX-License-Identifier: GPL-3.0-or-later
#include "audio/shelf/QBAudioMemRing.h"

#include "model/recorded/QBBlock.h"
#include "support/Testing.h"

namespace korvel {
namespace {

constexpr int kBytes = QBAudioMem::kBytes;

/// A buffer over bytes of its own.
struct Buffer : platform::QueueBuffer {
  explicit Buffer(std::vector<std::byte> content) : bytes(std::move(content)) {
    data = bytes;
    dataByteSize = static_cast<std::uint32_t>(bytes.size());
    packetDescriptionCount = 7;
  }
  explicit Buffer(int size) : Buffer(std::vector<std::byte>(static_cast<std::size_t>(size))) {}
  std::vector<std::byte> bytes;
};

/// Bytes that tell their place: those of a long sound from a byte on.
std::vector<std::byte> sound(int from, int count) {
  std::vector<std::byte> bytes;
  for (int i = from; i < from + count; ++i) bytes.push_back(std::byte(i * 31 + i / 256));
  return bytes;
}

std::vector<std::byte> filled(QBAudioMemRing& ring, int size) {
  Buffer buffer(size);
  ring.Fill(buffer);
  EXPECT_EQ(buffer.packetDescriptionCount, 0U);
  return buffer.bytes;
}

void push(QBAudioMem& memory, int from, int count) { memory.Push(Buffer(sound(from, count))); }

int samplesIn(QBAudioMem& memory) {
  int count = 0;
  while (memory.nextSample()) ++count;
  return count;
}

TEST(QBAudioMem, fillsUpAndThenKeepsNoMore) {
  QBAudioMem memory;
  push(memory, 0, kBytes - 100);
  push(memory, kBytes - 100, 200);
  push(memory, 5, 200);
  const auto whole = sound(0, kBytes);
  for (std::size_t i = 0; i < whole.size(); i += 2)
    ASSERT_EQ(memory.nextSample(), bytesToShort(whole[i], whole[i + 1])) << i;
  EXPECT_FALSE(memory.nextSample());
  memory.Reset();
  EXPECT_EQ(memory.nextSample(), bytesToShort(whole[0], whole[1]));
  EXPECT_FALSE(memory.nextSample());
}

// Players count on one sample past the written ones.
TEST(QBAudioMem, readsOneSampleTooMany) {
  QBAudioMem memory;
  EXPECT_EQ(samplesIn(memory), 1);
  memory.Reset();
  push(memory, 0, 100);
  EXPECT_EQ(samplesIn(memory), 51);
}

TEST(QBAudioMemRing, keepsTheNewestBytesWhenItWraps) {
  QBAudioMemRing ring;
  push(ring, 0, kBytes - 10);
  push(ring, kBytes - 10, 30);
  EXPECT_EQ(filled(ring, 1000), sound(kBytes + 20 - 1000, 1000));
  push(ring, kBytes + 20, 5 * kBytes);
  EXPECT_EQ(filled(ring, kBytes), sound(5 * kBytes + 20, kBytes));
}

TEST(QBAudioMemRing, fillsABufferWithoutSizeToADefault) {
  QBAudioMemRing ring;
  push(ring, 0, 20000);
  Buffer buffer(10000);
  buffer.dataByteSize = 0;
  ring.Fill(buffer);
  EXPECT_EQ(buffer.dataByteSize, 8192U);
  buffer.bytes.resize(8192);
  EXPECT_EQ(buffer.bytes, sound(20000 - 8192, 8192));
  Buffer small(100);
  small.dataByteSize = 0;
  ring.Fill(small);
  EXPECT_EQ(small.bytes, sound(20000 - 8192, 100));
}

TEST(QBAudioMemRing, readsOnBeforeTheFirstWrapAndByDelayAfterIt) {
  QBAudioMemRing ring;
  ring.SetDelay(0.5F);
  push(ring, 0, kBytes - 1000);
  EXPECT_EQ(filled(ring, 100), sound(0, 100));
  EXPECT_EQ(filled(ring, 100), sound(100, 100));
  push(ring, kBytes - 1000, 1000);
  EXPECT_EQ(filled(ring, 100), sound(kBytes - 22050, 100));
  EXPECT_EQ(filled(ring, 100), sound(kBytes - 22050, 100));
  ring.SetDelay(0.1F);
  push(ring, kBytes, 1000);
  // 0.1 x 44100 is a little more than 4410, and rounds to it only in single precision.
  EXPECT_EQ(filled(ring, 8000), [] {
    auto bytes = sound(kBytes + 1000 - 4410, 4410);
    const auto oldest = sound(1000, 8000 - 4410);
    bytes.insert(bytes.end(), oldest.begin(), oldest.end());
    return bytes;
  }());
  ring.Reset();
  EXPECT_EQ(filled(ring, 10), sound(kBytes, 10));
}

TEST(QBAudioMemRing, staysInsideWhateverTheDelayAndTheSizes) {
  QBAudioMemRing ring;
  push(ring, 0, 3);
  for (int i = 0; i < 2 * kBytes; i += 1001) push(ring, i, 1001);
  for (const float delay :
       {1e-5F, 5.2F, -5.2F, 1e9F, -1e30F, 3e38F, std::numeric_limits<float>::infinity(),
        std::numeric_limits<float>::quiet_NaN()}) {
    ring.SetDelay(delay);
    EXPECT_EQ(filled(ring, 3 * kBytes + 1).size(), 3U * kBytes + 1) << delay;
  }
  while (ring.nextSample()) {
  }
}

struct LockedRing : QBAudioMemRing {
  bool Ptry() override { return false; }
};

TEST(QBAudioMemRing, isSilentWhenTheLockIsNotToBeHad) {
  LockedRing ring;
  Buffer buffer(sound(1, 10000));
  ring.Fill(buffer);
  EXPECT_EQ(buffer.bytes, std::vector<std::byte>(10000));
  EXPECT_EQ(buffer.dataByteSize, 8192U);
}

}  // namespace
}  // namespace korvel
