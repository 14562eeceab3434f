// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/media/MonoReader.h"

#include "platform/media/MediaError.h"
#include "support/Testing.h"
#include "support/sound/FfmpegTool.h"
#include "support/store/ScratchFolder.h"

namespace korvel::platform {
namespace {

std::vector<float> rest(MonoReader& reader) {
  std::vector<float> all;
  for (auto samples = reader.next(); !samples.empty(); samples = reader.next())
    all.insert(all.end(), samples.begin(), samples.end());
  return all;
}

std::vector<float> decoded(const std::string& file) {
  const MediaAsset asset(file);
  MonoReader reader(asset, *asset.firstSound());
  return reader.start() ? rest(reader) : std::vector<float>();
}

/// What the mean of the sound's channels is at a moment.
double meanAt(const test::Sound& sound, double seconds) {
  double sum = 0;
  for (int i = 1; i <= sound.channels; ++i)
    sum += sound.level * std::sin(2 * std::numbers::pi * i * sound.frequency * seconds);
  return sum / sound.channels;
}

/// The mean difference to that; the ends, where coders and filters start, are left out.
double errorOf(const test::Sound& sound, const std::vector<float>& samples) {
  constexpr std::size_t kEnd = 4410;
  double sum = 0;
  for (std::size_t i = kEnd; i + kEnd < samples.size(); ++i)
    sum += std::pow(samples[i] - meanAt(sound, static_cast<double>(i) / MonoReader::kRate), 2);
  return std::sqrt(sum / static_cast<double>(samples.size() - 2 * kEnd));
}

// Two samples too early or too late would be an error of 0.02. Coders round up to whole frames.
TEST(MonoReader, givesTheMeanOfTheChannelsInTimeAtOneRate) {
  struct Format {
    std::string name;
    test::Sound sound;
    std::vector<std::string> encoding;
    double tolerance;
  };
  const std::vector<Format> formats{
      {"mono.wav", {}, {}, 1e-4},
      {"loud.wav", {.level = 3}, {"-c:a", "pcm_f32le"}, 1e-4},
      {"two.wav", {.channels = 2}, {"-c:a", "pcm_s24le"}, 1e-4},
      {"rate48.wav", {.sampleRate = 48000}, {}, 1e-3},
      {"rate8.wav", {.sampleRate = 8000}, {}, 1e-3},
      {"rate96.flac", {.sampleRate = 96000, .channels = 2}, {}, 1e-3},
      {"six.wav", {.sampleRate = 48000, .channels = 6}, {}, 1e-3},
      {"three.wav", {.channels = 3}, {"-c:a", "pcm_u8"}, 0.01},
      {"two.mp3", {.channels = 2}, {"-b:a", "192k"}, 0.015},
      {"rate48.mp3", {.sampleRate = 48000}, {"-b:a", "192k"}, 0.015},
      {"two.m4a", {.sampleRate = 48000, .channels = 2}, {"-c:a", "aac", "-b:a", "256k"}, 0.015},
      {"rate48.ogg", {.sampleRate = 48000}, {"-c:a", "libvorbis"}, 0.015},
  };
  const test::ScratchFolder folder;
  for (const Format& format : formats) {
    const std::string file = folder.file(format.name);
    test::encode(format.sound, file, format.encoding);
    const std::vector<float> samples = decoded(file);
    EXPECT_NEAR(static_cast<double>(samples.size()), MonoReader::kRate, 200) << format.name;
    EXPECT_LT(errorOf(format.sound, samples), format.tolerance) << format.name;
  }
}

TEST(MonoReader, goesOnWhereRateAndChannelsChange) {
  const test::ScratchFolder folder;
  const test::Sound second{.frequency = 441, .sampleRate = 48000};
  test::encode({.channels = 2}, folder.file("1.mp3"), {"-write_xing", "0", "-id3v2_version", "0"});
  test::encode(second, folder.file("2.mp3"), {"-write_xing", "0", "-id3v2_version", "0"});
  const std::string both = folder.file("3.mp3");
  test::writeFile(both,
                  test::readFile(folder.file("1.mp3")) + test::readFile(folder.file("2.mp3")));
  const auto samples = decoded(both);
  EXPECT_NEAR(static_cast<double>(samples.size()), 2 * MonoReader::kRate, 5000);
  // A tone of 100 samples' length repeats in the second half.
  for (std::size_t i = 60000; i < 80000; ++i) EXPECT_NEAR(samples[i], samples[i + 100], 0.02);
}

// A sweep sounds different everywhere.
TEST(MonoReader, goesOnFromAnyPlaceAsIfItHadReadUpToIt) {
  const test::ScratchFolder folder;
  for (const std::string name : {"a.wav", "a.flac", "a.mp3", "a.ogg", "a.m4a", "a.opus"}) {
    const std::string file = folder.file(name);
    test::ffmpeg({"-f", "lavfi", "-i", "aevalsrc='0.5*sin(2*PI*(200*t+20*t*t))':s=48000:d=20",
                  "file:" + file});
    const std::vector<float> whole = decoded(file);
    const MediaAsset asset(file);
    MonoReader reader(asset, *asset.firstSound());
    ASSERT_TRUE(reader.start());
    for (const std::int64_t place : {700000, 60000, 300001}) {
      const auto begin = reader.seek(place);
      ASSERT_TRUE(begin && *begin <= place) << name;
      std::vector<float> samples;
      while (std::ssize(samples) < place - *begin + 3000) {
        const auto more = reader.next();
        ASSERT_FALSE(more.empty()) << name;
        samples.insert(samples.end(), more.begin(), more.end());
      }
      for (std::int64_t i = place; i < place + 3000; i += 7)
        ASSERT_NEAR(samples[static_cast<std::size_t>(i - *begin)],
                    whole[static_cast<std::size_t>(i)], 0.03)
            << name << " at " << i << " from " << *begin;
    }
    EXPECT_FALSE(reader.seek(100)) << "coders begin with what is left out";
    EXPECT_FALSE(reader.isReading());
  }
}

TEST(MonoReader, tellsHowMuchItHasRead) {
  const test::ScratchFolder folder;
  test::encode({.seconds = 30}, folder.file("a.wav"));
  const MediaAsset asset(folder.file("a.wav"));
  MonoReader whole(asset, asset.tracks()[0]);
  MonoReader cut(asset, asset.tracks()[0]);
  EXPECT_TRUE(whole.next().empty());
  ASSERT_TRUE(whole.start() && cut.start());
  std::size_t chunks = 0;
  double last = 0;
  for (std::size_t seen = whole.next().size(); whole.isReading(); seen += whole.next().size()) {
    EXPECT_GE(whole.progress(), last);
    last = whole.progress();
    EXPECT_NEAR(last, static_cast<double>(seen) / (30 * MonoReader::kRate), 0.1);
    ++chunks;
  }
  EXPECT_GT(chunks, 60U) << "chunks short enough to show progress between them";
  EXPECT_GT(last, 0.95);
  EXPECT_FALSE(cut.next().empty());
  cut.cancel();
  EXPECT_TRUE(cut.next().empty() && !cut.isReading());
}

TEST(MonoReader, refusesMoreChannelsThanItCanMix) {
  const test::ScratchFolder folder;
  const std::string file = folder.file("65.wav");
  const std::string raw(65 * 2 * 1000, '\x10');
  test::writeFile(folder.file("raw"), raw);
  test::ffmpeg({"-f", "s16le", "-ac", "65", "-i", "file:" + folder.file("raw"), "file:" + file});
  const MediaAsset asset(file);
  ASSERT_NE(asset.firstSound(), nullptr);
  EXPECT_THROW(MonoReader(asset, *asset.firstSound()), MediaError);
}

}  // namespace
}  // namespace korvel::platform
