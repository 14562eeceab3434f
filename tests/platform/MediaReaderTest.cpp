// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/media/MediaReader.h"

#include <sys/stat.h>

#include "platform/media/MediaError.h"
#include "support/Testing.h"
#include "support/sound/FfmpegTool.h"
#include "support/store/ScratchFolder.h"

namespace korvel::platform {
namespace {

using Coding = MediaTrack::Coding;

std::string rest(MediaReader& reader) {
  std::string bytes;
  for (auto chunk = reader.next(); !chunk.empty(); chunk = reader.next())
    bytes.append(reinterpret_cast<const char*>(chunk.data()), chunk.size());
  return bytes;
}

/// The first track's bytes; empty when it cannot be decoded.
std::string decoded(const std::string& file) {
  const MediaAsset asset(file);
  if (asset.tracks().empty() || asset.tracks()[0].coding == Coding::none) return {};
  MediaReader reader(asset, asset.tracks()[0]);
  return reader.start() ? rest(reader) : std::string();
}

std::string decodedByTool(const std::string& file, const std::string& scratch) {
  test::ffmpeg({"-i", "file:" + file, "-f", "s16le", "-acodec", "pcm_s16le", "file:" + scratch});
  return test::readFile(scratch);
}

struct Format {
  std::string name;
  test::Sound sound;
  std::vector<std::string> encoding;
  Coding coding = Coding::lpcm;
};

const Format kFormats[] = {
    {"pcm16.wav", {}, {}},
    {"pcm8.wav", {}, {"-c:a", "pcm_u8"}},
    {"pcm32.wav", {.level = 1.2}, {"-c:a", "pcm_s32le"}},
    {"float.wav", {.level = 1.2}, {"-c:a", "pcm_f32le"}},
    {"rate96.wav", {.sampleRate = 96000}, {}},
    {"channels6.wav", {.channels = 6}, {"-c:a", "pcm_s24le"}},
    {"mono.mp3", {}, {}, Coding::mp3},
    {"two.mp3", {.channels = 2}, {}, Coding::mp3},
    {"aac.m4a", {.channels = 2}, {"-c:a", "aac"}, Coding::aac},
    {"free.flac", {.channels = 2}, {}},
    {"with 'blanks', \"quotes\": Käse.ogg", {}, {"-c:a", "libvorbis"}},
};

TEST(MediaReader, everyFormatGivesTheToolsSamples) {
  for (const Format& format : kFormats) {
    const test::ScratchFolder folder;
    const std::string file = folder.file(format.name);
    test::encode(format.sound, file, format.encoding);
    const MediaAsset asset(file);
    ASSERT_EQ(asset.tracks().size(), 1U) << asset.problem().english();
    const MediaTrack& track = asset.tracks()[0];
    EXPECT_EQ(track.media, MediaTrack::Media::sound) << file;
    EXPECT_EQ(track.coding, format.coding) << file << track.codec;
    EXPECT_EQ(track.sampleRate, format.sound.sampleRate) << file;
    EXPECT_EQ(track.channels, format.sound.channels) << file;
    EXPECT_TRUE(decoded(file) == decodedByTool(file, folder.file("raw"))) << file;
  }
}

TEST(MediaAsset, listsSoundAndOtherTracksInOrder) {
  const test::ScratchFolder folder;
  const std::string file = folder.file("film.mkv");
  test::ffmpeg({"-f", "lavfi", "-i", "testsrc=d=1:s=64x64", "-f", "lavfi", "-i", "sine=d=1", "-c:v",
                "mpeg4", "-c:a", "libmp3lame", "file:" + file});
  const MediaAsset asset(file);
  ASSERT_EQ(asset.tracks().size(), 2U);
  EXPECT_EQ(asset.tracks()[0].media, MediaTrack::Media::other);
  EXPECT_EQ(asset.tracks()[0].coding, Coding::none);
  EXPECT_THROW(MediaReader(asset, asset.tracks()[0]), MediaError);
  MediaReader reader(asset, asset.tracks()[1]);
  ASSERT_TRUE(reader.start());
  EXPECT_TRUE(rest(reader) == decodedByTool(file, folder.file("raw")));
}

TEST(MediaAsset, withoutATrackListSaysWhy) {
  const test::ScratchFolder folder;
  std::filesystem::create_directory(folder.file("folder.mp3"));
  test::writeFile(folder.file("empty.mp3"), "");
  ASSERT_EQ(mkfifo(folder.file("pipe.mp3").c_str(), 0600), 0);
  // A playlist is no sound, and must not make the program wait for the network.
  test::writeFile(folder.file("list.mp3"),
                  "#EXTM3U\n#EXT-X-TARGETDURATION:9\n#EXTINF:9,\nhttp://127.0.0.1:9/a.ts\n");
  // Nor may one bring in its neighbours.
  test::encode({}, folder.file("next.wav"));
  test::writeFile(folder.file("next.mp3"), "ffconcat version 1.0\nfile next.wav\n");
  for (const char* name :
       {"missing.mp3", "folder.mp3", "empty.mp3", "pipe.mp3", "list.mp3", "next.mp3"}) {
    const MediaAsset asset(folder.file(name));
    EXPECT_FALSE(asset.hasTrackList()) << name;
    EXPECT_TRUE(asset.problem().english().starts_with(folder.file(name) + ": cannot open: "))
        << name;
  }
}

/// A WAV file whose header says what it is told to say.
std::string wav(std::uint16_t channels, std::uint32_t dataSize, std::uint16_t frameBytes,
                const std::string& data) {
  const auto number = [](auto value) {
    return std::string(reinterpret_cast<const char*>(&value), sizeof value);
  };
  return "RIFF" + number(dataSize) + "WAVEfmt " + number(16U) + number(std::uint16_t{1}) +
         number(channels) + number(44100U) + number(88200U) + number(frameBytes) +
         number(std::uint16_t{16}) + "data" + number(dataSize) + data;
}

TEST(MediaReader, lyingWavHeaderGivesTheDataOrNothing) {
  const test::ScratchFolder folder;
  const std::string file = folder.file("a.wav");
  std::string data;
  for (int i = 0; i < 20000; ++i) data += static_cast<char>(i * 7919 >> 5);
  const auto bytesOf = [&](const std::string& content) {
    test::writeFile(file, content);
    return decoded(file);
  };
  EXPECT_EQ(bytesOf(wav(1, 0xFFFFFFF0U, 2, data)), data);
  EXPECT_EQ(bytesOf(wav(1, 0, 2, data)), data);
  EXPECT_EQ(bytesOf(wav(1, 20000, 0, data)), data);
  EXPECT_EQ(bytesOf(wav(1, 20001, 2, data + "x")), data);
  EXPECT_EQ(bytesOf(wav(100, 20000, 200, data)), data);
  EXPECT_EQ(bytesOf(wav(0, 20000, 2, data)), "");
  EXPECT_EQ(bytesOf(wav(0xFFFF, 20000, 2, data)), "");
}

TEST(MediaReader, truncatedAndDamagedFilesGiveWhatIsThere) {
  const test::ScratchFolder folder;
  const std::string file = folder.file("a.mp3");
  test::encode({.seconds = 3}, file, {"-b:a", "64k"});
  const std::string whole = test::readFile(file);
  const std::string sound = decoded(file);
  test::writeFile(file, whole.substr(0, whole.size() / 2 + 77));
  const std::string half = decoded(file);
  EXPECT_NEAR(static_cast<double>(half.size()), static_cast<double>(sound.size()) / 2, 10000);
  EXPECT_TRUE(sound.starts_with(half.substr(0, half.size() - 10000)));
  std::string damaged = whole;
  damaged.replace(whole.size() / 3, 2000, 2000, '\x55');
  test::writeFile(file, damaged);
  EXPECT_NE(decoded(file).find(sound.substr(sound.size() - 100000, 50000)), std::string::npos);
}

TEST(MediaReader, handsOutChangedRatesAndChannelsAsTheyAre) {
  const test::ScratchFolder folder;
  const std::string one = folder.file("1.mp3");
  const std::string two = folder.file("2.mp3");
  test::encode({.channels = 2}, one, {"-write_xing", "0", "-id3v2_version", "0"});
  test::encode({.sampleRate = 48000}, two, {"-write_xing", "0", "-id3v2_version", "0"});
  const std::string both = folder.file("3.mp3");
  test::writeFile(both, test::readFile(one) + test::readFile(two));
  EXPECT_EQ(decoded(both).size(), decoded(one).size() + decoded(two).size());
}

}  // namespace
}  // namespace korvel::platform
