// SPDX-License-Identifier: GPL-3.0-or-later
#include "audio/MonoTrack.h"

#include "support/RecordingViews.h"
#include "support/Testing.h"
#include "support/sound/FfmpegTool.h"
#include "support/store/ScratchStore.h"

namespace korvel {
namespace {

using Lines = std::vector<std::string>;

std::size_t drain(MonoTrack& track) {
  std::size_t count = 0;
  for (auto samples = track.readSamples(); !samples.empty(); samples = track.readSamples())
    count += samples.size();
  return count;
}

struct MonoTrackTest : testing::Test {
  std::string file(const std::string& name) const { return m_store.folder().file(name); }

  test::ScratchStore m_store;
  test::RecordingViews m_views;
};

TEST_F(MonoTrackTest, readsTheFirstSoundOfAFileAsOftenAsItIsStarted) {
  test::ffmpeg({"-f", "lavfi", "-i", "testsrc=d=2:s=64x64", "-f", "lavfi", "-i", "sine=d=2:r=48000",
                "-c:v", "mpeg4", "-c:a", "flac", "file:" + file("film.mkv")});
  MonoTrack track(file("film.mkv"));
  EXPECT_TRUE(track.eof() && track.readSamples().empty());
  for (int turn = 0; turn < 2; ++turn) {
    track.startRecord(0);
    EXPECT_FALSE(track.eof());
    EXPECT_LT(track.progress(), 1);
    EXPECT_NEAR(static_cast<double>(drain(track)), 2 * 44100, 16);
    EXPECT_TRUE(track.eof());
    EXPECT_EQ(track.progress(), 1);
  }
  track.startRecord(0);
  track.stopRecord();
  EXPECT_TRUE(track.eof() && track.readSamples().empty());
  EXPECT_EQ(m_views.log, Lines{});
}

TEST_F(MonoTrackTest, saysWhatIsWrongAndIsAtItsEnd) {
  test::writeFile(file("text.wav"), "this is some text\n");
  test::ffmpeg({"-f", "lavfi", "-i", "testsrc=d=1:s=64x64", "file:" + file("mute.mp4")});
  for (const char* name : {"missing.wav", "text.wav", "mute.mp4"}) {
    MonoTrack track(file(name));
    track.startRecord(0);
    EXPECT_TRUE(track.eof() && track.readSamples().empty()) << name;
  }
  EXPECT_EQ(m_views.log, (Lines{"no asset tracks found", "no asset tracks found"}));
}

}  // namespace
}  // namespace korvel
