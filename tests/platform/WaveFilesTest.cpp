// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/sound/WaveFiles.h"

#include <semaphore>

#include "platform/files/FileError.h"
#include "platform/media/WaveFileReader.h"
#include "support/SaidBy.h"
#include "support/Testing.h"
#include "support/sound/FfmpegTool.h"
#include "support/sound/Guitar.h"
#include "support/store/FileSizeLimit.h"
#include "support/store/ScratchFolder.h"

namespace korvel::platform {
namespace {

using Samples = std::vector<std::int16_t>;

/// Frames that count up on the left and down on the right.
Samples ramp(std::size_t frames) {
  Samples samples;
  for (std::size_t i = 0; i < frames; ++i) {
    const auto value = static_cast<std::int16_t>(i % 30000);
    samples.insert(samples.end(), {value, static_cast<std::int16_t>(-value)});
  }
  return samples;
}

Samples samplesOf(std::span<const std::byte> bytes) {
  Samples samples(bytes.size() / 2);
  std::memcpy(samples.data(), bytes.data(), bytes.size());
  return samples;
}

Samples readAll(const std::string& file) {
  WaveFileReader reader(file);
  Samples all(2'000'000);
  all.resize(reader.read(all));
  return all;
}

struct WaveFilesTest : testing::Test {
  /// Until the queue says for the second time that it has begun or ended to run.
  void awaitEnd(AudioQueue& queue) {
    queue.onRunningChanged([this] { m_changes.release(); });
    queue.start();
    m_changes.acquire();
    m_changes.acquire();
  }
  std::counting_semaphore<> m_changes{0};
  test::ScratchFolder m_folder;
  std::string m_in = m_folder.file("in.wav");
  std::string m_out = m_folder.file("out.wav");
};

TEST_F(WaveFilesTest, readerMakesLiveSoundOfAnyWave) {
  test::writeWav(m_in, {1000, -32768, 32767}, 44100, 1);
  EXPECT_EQ(readAll(m_in), (Samples{1000, 1000, -32768, -32768, 32767, 32767}));
  test::writeWav(m_in, {300, 0, 600}, 44100, 3);
  EXPECT_EQ(readAll(m_in), (Samples{300, 300}));
  test::writeWav(m_in, ramp(10000), 44100, 2);
  EXPECT_EQ(readAll(m_in), ramp(10000));
  for (const char* coding : {"pcm_f32le", "pcm_s24le", "pcm_u8"}) {
    test::encode({.frequency = 441, .sampleRate = 48000, .channels = 2}, m_in, {"-c:a", coding});
    const Samples samples = readAll(m_in);
    ASSERT_NEAR(static_cast<double>(samples.size()), 88200, 60) << coding;
    for (std::size_t i = 10000; i < 10400; i += 2) {
      const double phase = std::numbers::pi * static_cast<double>(i) / 100;
      EXPECT_NEAR(samples[i], 16384 * std::sin(phase), 200) << coding;
      EXPECT_NEAR(samples[i + 1], 16384 * std::sin(2 * phase), 200) << coding;
    }
  }
}

TEST_F(WaveFilesTest, whatIsNoWaveIsNamed) {
  const auto problemOf = [](const std::string& file) {
    return test::saidBy<FileError>([&] { const WaveFileReader reader(file); });
  };
  test::writeFile(m_in, "no sound");
  EXPECT_EQ(problemOf(m_in),
            m_in + ": it is no WAV file; another program has to convert it to one first");
  EXPECT_EQ(problemOf(m_out), m_out + ": cannot read: No such file or directory");
  EXPECT_EQ(problemOf(m_folder.path()), m_folder.path().string() + ": cannot read: it is a folder");
  for (const int rate : {1, 2'000'000'000}) {
    test::writeWav(m_in, ramp(100), rate, 2);
    EXPECT_NE(problemOf(m_in).find("no sound has " + std::to_string(rate)), std::string::npos);
  }
  test::encode({}, m_folder.file("a.flac"));
  EXPECT_NE(problemOf(m_folder.file("a.flac")), "");
}

TEST_F(WaveFilesTest, microphoneDeliversItsFileAndEnds) {
  const Samples played = ramp(25000);
  test::writeWav(m_in, played, 44100, 2);
  WaveFiles files(m_in, {}, Pace::fastest);
  Samples heard;
  std::vector<double> starts;
  std::vector<std::uint32_t> packetCounts;
  std::unique_ptr<AudioQueue> queue;
  queue = files.newInput(
      "", kLiveSound, [&](QueueBuffer& buffer, const AudioTimeStamp& start, std::uint32_t packets) {
        const Samples samples = samplesOf(buffer.sound());
        heard.insert(heard.end(), samples.begin(), samples.end());
        starts.push_back(start.sampleTime);
        packetCounts.push_back(packets);
        queue->enqueue(buffer);
      });
  for (int i = 0; i < 3; ++i) queue->enqueue(queue->allocateBuffer(32768));
  awaitEnd(*queue);
  EXPECT_EQ(heard, played);
  EXPECT_EQ(starts, (std::vector<double>{0, 8192, 16384, 24576}));
  EXPECT_EQ(packetCounts, (std::vector<std::uint32_t>{8192, 8192, 8192, 424}));
  EXPECT_FALSE(queue->isRunning() || queue->isLost());
  EXPECT_EQ(queue->currentTime().sampleTime, 25000);
  queue->stop();
  EXPECT_THROW(files.newInput("USB", kLiveSound, {}), AudioError);
  EXPECT_THROW(files.newOutput("", kLiveSound, {}), AudioError) << "there is no speaker";
}

TEST_F(WaveFilesTest, soundForWhichNoBufferWaitsIsLostAtRealTime) {
  test::writeWav(m_in, ramp(4410), 44100, 2);
  WaveFiles files(m_in);
  std::vector<double> starts;
  std::unique_ptr<AudioQueue> queue;
  QueueBuffer* late = nullptr;
  queue = files.newInput(m_in, kLiveSound,
                         [&](QueueBuffer& buffer, const AudioTimeStamp& start, std::uint32_t) {
                           starts.push_back(start.sampleTime);
                           if (late) queue->enqueue(*std::exchange(late, nullptr));
                           if (starts.size() == 1) late = &buffer;
                         });
  queue->enqueue(queue->allocateBuffer(441 * 4));
  queue->enqueue(queue->allocateBuffer(441 * 4));
  const auto before = std::chrono::steady_clock::now();
  awaitEnd(*queue);
  const std::chrono::duration<double> took = std::chrono::steady_clock::now() - before;
  EXPECT_EQ(starts, (std::vector<double>{0, 441, 882})) << "then there was no buffer";
  EXPECT_EQ(queue->currentTime().sampleTime, 4410) << "and time went on";
  EXPECT_GE(took.count(), 0.1);
}

/// Sound from a counter, buffer after buffer.
class Player {
 public:
  Player(WaveFiles& files, int buffers) : m_buffers(buffers) {
    queue = files.newOutput("", kLiveSound, [this](QueueBuffer& buffer) { fill(buffer); });
    for (int i = 0; i < 3; ++i) fill(queue->allocateBuffer(4000));
  }
  std::unique_ptr<AudioQueue> queue;
  std::binary_semaphore over{0};

 private:
  void fill(QueueBuffer& buffer) {
    if (m_filled == m_buffers) over.release();
    if (m_filled++ >= m_buffers) return;
    const Samples all = ramp(1000 * static_cast<std::size_t>(m_filled));
    std::memcpy(buffer.data.data(), all.data() + all.size() - 2000, 4000);
    queue->enqueue(buffer);
  }
  int m_buffers;
  int m_filled = 0;
};

TEST_F(WaveFilesTest, speakerWritesWhatIsPlayedAndSilenceInBetween) {
  for (const Pace pace : {Pace::realTime, Pace::fastest}) {
    WaveFiles files({}, m_out, pace);
    Player player(files, 12);
    player.queue->start();
    player.over.acquire();
    player.queue->stop();
    const Samples written = readAll(m_out);
    const Samples played = ramp(12000);
    // What is in a buffer that was not played to its end goes.
    ASSERT_GT(written.size(), 18000U);
    const std::size_t common = std::min(written.size(), played.size());
    EXPECT_TRUE(std::equal(written.begin(), written.begin() + static_cast<std::ptrdiff_t>(common),
                           played.begin()));
    EXPECT_EQ(player.queue->currentTime().sampleTime, static_cast<double>(written.size() / 2));
  }
}

TEST_F(WaveFilesTest, fullDiskIsALostDevice) {
  const test::FileSizeLimit full(20000);
  WaveFiles files({}, m_out, Pace::fastest);
  Player player(files, 1000);
  awaitEnd(*player.queue);
  EXPECT_TRUE(player.queue->isLost());
  player.queue->stop();
  EXPECT_FALSE(std::filesystem::exists(m_out));
  EXPECT_THROW(WaveFiles({}, m_folder.file("no/out.wav")).newOutput("", kLiveSound, {})->start(),
               AudioError);
}

}  // namespace
}  // namespace korvel::platform
