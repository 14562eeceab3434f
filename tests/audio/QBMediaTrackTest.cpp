// SPDX-License-Identifier: GPL-3.0-or-later
#include "audio/QBMediaTrack.h"

#include "support/RecordingViews.h"
#include "support/Testing.h"
#include "support/sound/FfmpegTool.h"
#include "support/store/ScratchStore.h"

namespace korvel {
namespace {

using Lines = std::vector<std::string>;

struct QBMediaTrackTest : testing::Test {
  std::string file(const std::string& name) const { return m_store.folder().file(name); }

  /// A WAV file with that many bytes of sound.
  std::string wav(std::size_t bytes) const {
    const std::string name = file(std::to_string(bytes) + ".wav");
    test::encode({.seconds = static_cast<double>(bytes) / 2 / 44100}, name);
    return name;
  }
  std::string decodedByTool(const std::string& media) const {
    test::ffmpeg({"-i", "file:" + media, "-f", "s16le", "file:" + file("raw")});
    return test::readFile(file("raw"));
  }

  test::ScratchStore m_store;
  test::RecordingViews m_views;
};

/// All pending blocks, one text of bytes each.
std::vector<std::string> drain(QBMediaTrack& track) {
  std::vector<std::string> blocks;
  while (const auto block = track.readBlockFromSamples())
    blocks.emplace_back(reinterpret_cast<const char*>(block->data().data()), block->data().size());
  return blocks;
}

std::string joined(const std::vector<std::string>& blocks) {
  std::string all;
  for (const std::string& block : blocks) all += block;
  return all;
}

TEST_F(QBMediaTrackTest, cutsTheDecodedSoundIntoFullBlocksAndARest) {
  test::encode({.seconds = 2.5}, file("mono.wav"));
  test::encode({.seconds = 2.5, .channels = 2}, file("two.m4a"), {"-c:a", "aac"});
  for (const char* name : {"mono.wav", "two.m4a"}) {
    const std::string sound = decodedByTool(file(name));
    const std::size_t full = sound.size() / QBBlock::kBytes;
    QBMediaTrack track(file(name));
    track.startRecord(0);
    EXPECT_EQ(track.nmbOfBlocks(), static_cast<std::int64_t>(full + 1)) << name;
    EXPECT_EQ(track.nmbOfSamples(), static_cast<std::int64_t>(full)) << name;
    const auto blocks = drain(track);
    EXPECT_TRUE(joined(blocks) == sound) << name;
    for (std::size_t i = 0; i < full; ++i) EXPECT_EQ(blocks.at(i).size(), QBBlock::kBytes) << name;
  }
  EXPECT_EQ(m_views.log, Lines{});
}

TEST_F(QBMediaTrackTest, makesNoEmptyBlockAfterAFullOne) {
  QBMediaTrack track(wav(3 * QBBlock::kBytes));
  track.startRecord(0);
  EXPECT_EQ(track.nmbOfBlocks(), 3);
  EXPECT_EQ(track.nmbOfSamples(), 2);
  // An hour of sound is to take no more memory than its samples.
  EXPECT_EQ(track.readBlockFromSamples()->data().capacity(), QBBlock::kBytes);
}

// The displays rely on a progress that knows only 0 and 100.
TEST_F(QBMediaTrackTest, workingStateStaysZeroUntilTheLastBlock) {
  QBMediaTrack track(wav(10 * QBBlock::kBytes));
  EXPECT_THROW(track.workingStateInPercent(), std::domain_error);
  EXPECT_TRUE(track.eof());
  track.startRecord(0);
  for (int i = 0; i < 9; ++i) track.readBlockFromSamples();
  EXPECT_EQ(track.workingStateInPercent(), 0);
  EXPECT_FALSE(track.eof());
  track.readBlockFromSamples();
  EXPECT_EQ(track.workingStateInPercent(), 100);
  EXPECT_TRUE(track.eof());
  EXPECT_EQ(track.readBlockFromSamples(), nullptr);
  EXPECT_EQ(track.nmbOfProcessedBlocks(), 10);
}

TEST_F(QBMediaTrackTest, readsSliceBySliceWhileBlocksAreTaken) {
  const std::string name = wav(20 * QBBlock::kBytes + 100);
  QBMediaTrack track(name);
  EXPECT_FALSE(track.pullBuffer());
  ASSERT_TRUE(track.open());
  EXPECT_TRUE(track.eof() && track.isReading());
  std::string sound;
  int slices = 0;
  while (track.pullBuffer()) {
    sound += joined(drain(track));
    ++slices;
  }
  EXPECT_GE(slices, 5);
  EXPECT_FALSE(track.isReading());
  EXPECT_TRUE(sound == decodedByTool(name));
}

TEST_F(QBMediaTrackTest, stopEndsReadingAndKeepsWhatWasRead) {
  QBMediaTrack track(wav(20 * QBBlock::kBytes));
  ASSERT_TRUE(track.open() && track.pullBuffer());
  track.stopRecord();
  EXPECT_FALSE(track.isReading() || track.pullBuffer() || track.eof());
}

TEST_F(QBMediaTrackTest, saysWhatIsWrongAndIsAtItsEnd) {
  std::string text;
  while (text.size() < 100000) text += "this is some text\n";
  test::writeFile(file("text.mp3"), text);
  // A kind of AAC that players have, but no decoder here.
  test::encode({}, file("celp.m4a"), {"-c:a", "aac"});
  std::string movie = test::readFile(file("celp.m4a"));
  movie.replace(movie.find("\x05\x80\x80\x80", movie.find("esds")) + 5, 2, "\x42\x08");
  test::writeFile(file("celp.m4a"), movie);
  test::ffmpeg({"-f", "lavfi", "-i", "testsrc=d=1:s=64x64", "file:" + file("mute.mp4")});
  const auto logOf = [&](const std::string& path) {
    m_views.log.clear();
    QBMediaTrack track(path);
    track.startRecord(0);
    EXPECT_TRUE(track.eof() && !track.isReading()) << path;
    return m_views.log;
  };
  EXPECT_EQ(logOf(file("missing.mp3")), Lines{"no asset tracks found"});
  EXPECT_EQ(logOf(file("text.mp3")), Lines{});  // Passes for MP3 in which no frame is found.
  EXPECT_EQ(logOf(file("celp.m4a")), Lines{"could not start reading asset"});
  EXPECT_EQ(logOf(file("mute.mp4")), Lines{});
  EXPECT_EQ(logOf(""), Lines{});
}

}  // namespace
}  // namespace korvel
