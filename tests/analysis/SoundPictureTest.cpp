// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/picture/SoundPicture.h"

#include <semaphore>

#include "platform/media/WaveFileWriter.h"
#include "support/Testing.h"
#include "support/store/ScratchFolder.h"

namespace korvel {
namespace {

using Trouble = SoundPicture::Trouble;

constexpr double kSeconds = 40;

/// Silence, but for an A of 440 Hz in each tenth second.
struct SoundPictureTest : testing::Test {
  SoundPictureTest() {
    platform::WaveFileWriter writer(m_file, platform::kSampleRate, 1);
    std::vector<std::int16_t> samples(static_cast<std::size_t>(kSeconds * platform::kSampleRate));
    for (std::size_t i = 0; i < samples.size(); ++i)
      if (sounds(static_cast<double>(i) / platform::kSampleRate))
        samples[i] = static_cast<std::int16_t>(
            8000 *
            std::sin(2 * std::numbers::pi * 440 * static_cast<double>(i) / platform::kSampleRate));
    writer.write(samples);
    writer.finish();
  }

  static bool sounds(double seconds) { return std::fmod(seconds, 10) >= 9; }

  SoundPicture picture(std::size_t mostBytes = SoundPicture::kMostBytes, std::int64_t size = -1,
                       const std::string& hash = {}) {
    return SoundPicture(
        {.path = m_file, .seconds = kSeconds, .size = size, .hash = hash},
        [this] { m_changed.release(); }, mostBytes);
  }

  /// Waits until all columns of a stretch are there, or there is trouble.
  SoundPicture::Columns made(SoundPicture& picture, const SoundPicture::Stretch& stretch) {
    picture.want({stretch});
    while (picture.trouble() == Trouble::none && isMissing(picture, stretch)) m_changed.acquire();
    return picture.look(stretch);
  }

  static bool isMissing(SoundPicture& picture, const SoundPicture::Stretch& stretch) {
    if (stretch.level == SoundTile::kSampleLevel)
      return picture.samples(stretch.first, stretch.end).empty();
    const auto shades = picture.look(stretch).shades;
    return std::ranges::find(shades, nullptr) != shades.end();
  }

  /// The loudest bin of a column, -1 where nothing sounds.
  static int loudest(const std::uint8_t* shades) {
    const auto* most = std::max_element(shades, shades + SoundTile::kBins);
    return *most < 100 ? -1 : static_cast<int>(most - shades);
  }

  const test::ScratchFolder m_folder;
  const std::string m_file = m_folder.file("a.wav");
  std::counting_semaphore<> m_changed{0};
};

TEST_F(SoundPictureTest, showsPitchAndWaveInTimeAtEveryLevel) {
  SoundPicture picture = this->picture();
  constexpr int kBinOfA = 3 * (69 - precise::Analysis::kLowestPitch + 1);
  for (const int level : {2, 0, 1, picture.topLevel()}) {
    const double seconds = (1 << level) / precise::kFramesPerSecond;
    const auto columns = made(picture, {level, 0, picture.columns(level)});
    for (std::size_t i = 0; i < columns.shades.size(); ++i) {
      const double middle = (static_cast<double>(i) + (level > 0 ? 0.5 : 0.0)) * seconds;
      if (std::abs(std::fmod(middle + 0.5, 1) - 0.5) < 0.1 + seconds || middle > 39) continue;
      ASSERT_EQ(loudest(columns.shades[i]), sounds(middle) ? kBinOfA : -1)
          << level << " " << middle;
      ASSERT_EQ(columns.peaks[i]->high > 7000, sounds(middle)) << level << " " << middle;
    }
  }
  EXPECT_NEAR(picture.loudestSample(), 8000, 2);
  const SoundPicture::Stretch samples{SoundTile::kSampleLevel, 9 * 44100, 9 * 44100 + 200};
  made(picture, samples);
  EXPECT_NEAR(picture.samples(samples.first, samples.end)[25], 8000, 2) << "a quarter period";
}

TEST_F(SoundPictureTest, aPlaceLooksTheSameFromWhereverItIsReached) {
  SoundPicture inOrder = picture();
  SoundPicture jumping = picture();
  made(inOrder, {0, 0, inOrder.columns(0)});
  for (const std::int64_t first : {2304, 768, 2048}) {
    const SoundPicture::Stretch stretch{0, first, first + 256};
    const auto columns = made(jumping, stretch);
    const auto same = made(inOrder, stretch);
    for (std::size_t i = 0; i < columns.shades.size(); ++i)
      ASSERT_TRUE(
          std::equal(columns.shades[i], columns.shades[i] + SoundTile::kBins, same.shades[i]))
          << first + static_cast<std::int64_t>(i);
  }
}

TEST_F(SoundPictureTest, keepsWithinItsRoomAndShowsWhatIsThere) {
  SoundPicture picture = this->picture(300000);
  picture.want({{picture.topLevel(), 0, 1}});
  for (int tile = 0; tile < 14 + 7 + 4 + 2 + 1; ++tile) m_changed.acquire();
  EXPECT_LE(picture.bytes(), 300000U) << "four tiles";
  const auto rough = picture.look({0, 0, 10});
  ASSERT_NE(rough.shades[0], nullptr) << "of a coarser level";
  EXPECT_EQ(rough.shades[0], rough.shades[9]);
}

TEST_F(SoundPictureTest, saysWhatIsWrongWithTheFile) {
  const auto troubleOf = [this](SoundPicture picture) {
    made(picture, {0, 0, 10});
    while (picture.trouble() == Trouble::none) m_changed.acquire();
    return picture.trouble();
  };
  EXPECT_EQ(troubleOf(picture(SoundPicture::kMostBytes, 12)), Trouble::changed);
  EXPECT_EQ(troubleOf(picture(SoundPicture::kMostBytes, -1, "00")), Trouble::changed);
  test::writeFile(m_file, "no sound");
  EXPECT_EQ(troubleOf(picture()), Trouble::unreadable);
  std::filesystem::remove(m_file);
  EXPECT_EQ(troubleOf(picture()), Trouble::missing);
}

TEST_F(SoundPictureTest, readsACopyWhereTheFileIsAnotherOne) {
  const std::string copy = m_folder.file("copy.wav");
  std::filesystem::copy_file(m_file, copy);
  test::writeFile(m_file, "no sound");
  SoundPicture picture({.path = m_file, .seconds = kSeconds, .size = 12, .copy = copy},
                       [this] { m_changed.release(); });
  const auto columns = made(picture, {0, 800, 810});
  EXPECT_EQ(picture.trouble(), Trouble::none);
  EXPECT_NE(loudest(columns.shades[0]), -1) << "within the tenth second";
}

}  // namespace
}  // namespace korvel
