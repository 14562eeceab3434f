// SPDX-License-Identifier: GPL-3.0-or-later
#include "audio/QBSampleSource.h"

#include "audio/shelf/QBTimeMgr.h"
#include "recording/shelf/QBWaveInFile.h"
#include "support/Testing.h"
#include "support/store/ScratchFolder.h"

namespace korvel {
namespace {

/// A buffer of live sound; every byte pair holds the value.
class Sound {
 public:
  explicit Sound(std::int16_t value, std::uint32_t size = QBBlock::kBytes) : m_bytes(size) {
    for (std::size_t i = 0; i + 1 < size; i += 2) {
      m_bytes[i] = static_cast<std::byte>(value & 0xFF);
      m_bytes[i + 1] = static_cast<std::byte>(value >> 8 & 0xFF);
    }
    m_buffer.data = m_bytes;
    m_buffer.dataByteSize = size;
  }
  operator platform::QueueBuffer&() { return m_buffer; }

 private:
  std::vector<std::byte> m_bytes;
  platform::QueueBuffer m_buffer;
};

TEST(QBSampleSource, readsBlocksInTheOrderOfPushing) {
  QBSampleSource source;
  // More than the ring has, so that blocks are filled again.
  for (int round = 0; round < 20; ++round) {
    for (std::int16_t i = 0; i < 20; ++i)
      source.pushBuffer({.sampleTime = i + 0.75}, Sound(static_cast<std::int16_t>(-i)));
    for (std::int16_t i = 0; i < 20; ++i) {
      const auto block = source.readBuffer();
      ASSERT_TRUE(block);
      EXPECT_EQ(block->m_time, i);
      EXPECT_EQ(block->toSamples(), std::vector<std::int16_t>(QBBlock::kSamples, -i));
    }
    EXPECT_EQ(source.readBuffer(), nullptr);
  }
}

TEST(QBSampleSource, takesOnlyFullBuffers) {
  QBSampleSource source;
  for (const std::uint32_t size : {0U, 4U * 8191, 32767U, 32769U, 65536U})
    source.pushBuffer({}, Sound(1, size));
  EXPECT_EQ(source.readBuffer(), nullptr);
}

TEST(QBSampleSource, losesNothingBetweenThreads) {
  QBSampleSource source;
  constexpr std::int16_t kMost = 300;
  std::thread audio([&] {
    for (std::int16_t i = 1; i <= kMost; ++i) source.pushBuffer({.sampleTime = 1.0 * i}, Sound(i));
  });
  for (std::int16_t next = 1; next <= kMost;) {
    const auto block = source.readBuffer();
    if (!block) continue;
    EXPECT_EQ(block->m_time, next);
    EXPECT_EQ(block->toSamples(), std::vector<std::int16_t>(QBBlock::kSamples, next));
    ++next;
  }
  audio.join();
  EXPECT_EQ(source.nmbOfDroppedBlocks(), 0);
}

TEST(QBTimeMgr, mixesItsUnitsOnPurpose) {
  using namespace std::chrono_literals;
  const QBTimeMgr::Clock::time_point now(1700000000s + 654321us);
  EXPECT_EQ(QBTimeMgr::currentMicroseconds(now), 1700000000000U + 654321U);
  const auto aged = [&](std::uint64_t age) {
    return QBTimeMgr::isValid({.hostTime = QBTimeMgr::currentMicroseconds(now) - age}, now);
  };
  EXPECT_TRUE(aged(0) && aged(999));
  EXPECT_FALSE(aged(1000) || aged(static_cast<std::uint64_t>(-1)));
}

TEST(QBWaveInFile, readsAListOfSamplesOrNothing) {
  const test::ScratchFolder folder;
  const std::string file = folder.file("a.plist");
  const auto samplesOf = [&](const std::string& text) {
    test::writeFile(file, text);
    QBWaveInFile wave(nullptr, file);
    wave.startRecord();
    return wave.samples();
  };
  using Samples = std::vector<std::int16_t>;
  EXPECT_EQ(samplesOf("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                      "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                      "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
                      "<plist version=\"1.0\">\n<array>\n\t<integer>0</integer>\n"
                      "\t<integer>-32768</integer><!-- loud -->\n\t<integer> +32767 </integer>\n"
                      "</array>\n</plist>\n"),
            (Samples{0, -32768, 32767}));
  EXPECT_EQ(samplesOf("<plist><array/></plist>"), Samples{});
  const std::string start = "<plist><array><integer>1</integer>";
  const std::string end = "</array></plist>";
  EXPECT_EQ(samplesOf(start + end), Samples{1});
  const std::vector<std::string> wrongTexts{
      "some text",
      start,
      start + end + "more",
      start + "<integer>32768</integer>" + end,
      start + "<integer>1.5</integer>" + end,
      start + "<string>1</string>" + end,
      "<array><integer>1</integer></array>",
      "<!DOCTYPE plist [<!ENTITY e \"<integer>1</integer>\">]>" + start + "&e;" + end,
      "<!DOCTYPE plist [<!ENTITY e \"1\">]>" + start + "<integer>&e;</integer>" + end};
  for (const std::string& wrong : wrongTexts) EXPECT_EQ(samplesOf(wrong), Samples{}) << wrong;
  QBWaveInFile missing(nullptr, folder.file("missing"));
  missing.startRecord();
  EXPECT_TRUE(missing.samples().empty() && missing.eof());
}

}  // namespace
}  // namespace korvel
