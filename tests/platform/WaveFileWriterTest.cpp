// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/media/WaveFileWriter.h"

#include "platform/files/FileError.h"
#include "support/SaidBy.h"
#include "support/Testing.h"
#include "support/store/FileSizeLimit.h"
#include "support/store/ScratchFolder.h"

namespace korvel::platform {
namespace {

namespace fs = std::filesystem;

std::vector<std::int16_t> ramp(std::size_t samples) {
  std::vector<std::int16_t> values(samples);
  std::iota(values.begin(), values.end(), static_cast<std::int16_t>(-3000));
  return values;
}

std::ptrdiff_t entriesIn(const fs::path& folder) {
  return std::distance(fs::directory_iterator(folder), fs::directory_iterator());
}

TEST(WaveFileWriter, appearsWithEverySampleWhenItIsFinished) {
  const test::ScratchFolder folder;
  const fs::path file = folder.file("a.wav");
  const std::vector<std::int16_t> samples = ramp(5000);
  WaveFileWriter writer(file, 44100, 2);
  writer.write(std::span(samples).first(1234));
  writer.write(std::span(samples).subspan(1234));
  EXPECT_FALSE(fs::exists(file));
  EXPECT_TRUE(writer.finish());
  EXPECT_EQ(writer.frames(), 2500U);
  const std::string bytes = test::readFile(file);
  ASSERT_EQ(bytes.size(), 44U + 10000U);
  EXPECT_TRUE(bytes.starts_with(std::string("RIFF\x34\x27\0\0WAVEfmt \x10\0\0\0\1\0\2\0", 24)));
  EXPECT_TRUE(std::ranges::equal(std::as_bytes(std::span(bytes).subspan(44)),
                                 std::as_bytes(std::span(samples))));
  EXPECT_EQ(entriesIn(folder.path()), 1);
}

TEST(WaveFileWriter, leavesNothingWhenItFailsOrIsDropped) {
  const test::ScratchFolder folder;
  const fs::path file = folder.file("a.wav");
  { WaveFileWriter(file, 44100, 2).write(ramp(100)); }
  EXPECT_EQ(entriesIn(folder.path()), 0);
  test::writeFile(file, "old");
  {
    const test::FileSizeLimit full(4096);
    WaveFileWriter writer(file, 44100, 2);
    EXPECT_EQ(test::saidBy<FileError>([&] { writer.write(ramp(10000)); }),
              file.string() + ": cannot write: File too large");
  }
  WaveFileWriter kept(file, 44100, 1, Existing::kept);
  EXPECT_FALSE(kept.finish());
  EXPECT_EQ(test::readFile(file), "old");
}

}  // namespace
}  // namespace korvel::platform
