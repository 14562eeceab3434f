// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files/Files.h"

#include <sys/stat.h>

#include "platform/files/FileError.h"
#include "platform/files/Resources.h"
#include "platform/text/Utf8.h"
#include "support/SaidBy.h"
#include "support/Testing.h"
#include "support/store/FileSizeLimit.h"
#include "support/store/ScratchFolder.h"

namespace korvel::platform {
namespace {

namespace fs = std::filesystem;

std::ptrdiff_t entriesIn(const fs::path& folder) {
  return std::distance(fs::directory_iterator(folder), fs::directory_iterator());
}

TEST(Files, replacedFileKeepsItsModeAndTheLinkToIt) {
  test::ScratchFolder folder;
  const fs::path real = folder.file("Gärten \"1\".txt");
  const fs::path link = folder.file("link.txt");
  writeAtomically(real, "old");
  fs::permissions(real, fs::perms::owner_read | fs::perms::owner_write);
  fs::create_symlink(real, link);
  const std::string bytes("new\0text", 8);
  writeAtomically(link, bytes);
  EXPECT_EQ(readWholeFile(real), bytes);
  EXPECT_TRUE(fs::is_symlink(link));
  EXPECT_EQ(fs::status(real).permissions(), fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_EQ(entriesIn(folder.path()), 2);
}

TEST(Files, storeIsNeverReplacedAndFilesAreKnownUnderAnyName) {
  const test::ScratchFolder folder;
  const std::string store = folder.file("Songs.sqlite");
  const std::string content = std::string("SQLite format 3") + '\0' + "songs";
  test::writeFile(store, content);
  const std::string link = folder.file("tab.txt");
  fs::create_symlink(store, link);
  EXPECT_THROW(writeAtomically(link, "a song"), FileError);
  EXPECT_EQ(test::readFile(store), content);
  EXPECT_TRUE(isSameFile(store, link));
  EXPECT_TRUE(isSameFile(folder.file("new"), folder.file("./new"))) << "which is not there";
  EXPECT_FALSE(isSameFile(store, folder.file("new")));
}

TEST(Files, failedWriteLeavesTheOldFileAndNoOther) {
  test::ScratchFolder folder;
  const fs::path file = folder.file("song.txt");
  writeAtomically(file, "old");
  {
    const test::FileSizeLimit full(4096);
    EXPECT_THROW(writeAtomically(file, std::string(10000, 'x')), FileError);
  }
  EXPECT_EQ(readWholeFile(file), "old");
  EXPECT_EQ(entriesIn(folder.path()), 1);
}

TEST(Files, errorsNameTheFileThatWasAskedFor) {
  test::ScratchFolder folder;
  const auto isNamedBy = [](const fs::path& file, const std::function<void()>& action) {
    return test::saidBy<FileError>(action).starts_with(file.string() + ": ");
  };
  const fs::path missing = folder.path() / "no" / "such.txt";
  EXPECT_TRUE(isNamedBy(missing, [&] { writeAtomically(missing, "x"); }));
  EXPECT_TRUE(isNamedBy(missing, [&] { readWholeFile(missing); }));
  EXPECT_TRUE(isNamedBy(folder.path(), [&] { writeAtomically(folder.path(), "x"); }));
  EXPECT_TRUE(isNamedBy(folder.path(), [&] { readWholeFile(folder.path()); }));
  const fs::path pipe = folder.file("pipe");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_TRUE(isNamedBy(pipe, [&] { readWholeFile(pipe); }));
}

TEST(Resources, earlierFolderWinsAndOnlyFilesCount) {
  test::ScratchFolder folder;
  for (const char* sub : {"a/Charts", "b/Charts.txt"}) fs::create_directories(folder.path() / sub);
  const fs::path a = folder.path() / "a";
  const fs::path b = folder.path() / "b";
  test::writeFile(a / "Classic E-Guitar.xml", "1");
  test::writeFile(b / "Classic E-Guitar.xml", "2");
  test::writeFile(b / "Charts", "3");
  const Resources resources({folder.path() / "none", a, b});
  EXPECT_EQ(resources.locate("Classic E-Guitar", "xml"), a / "Classic E-Guitar.xml");
  EXPECT_EQ(resources.locate("Charts"), b / "Charts");
  EXPECT_EQ(resources.locate("Charts", "txt"), std::nullopt);
  EXPECT_EQ(Resources::ofProgram().folders().front(),
            executableFolder().parent_path() / "share/korvel");
}

TEST(Utf8, countsCodePointsAndEachMalformedByte) {
  EXPECT_EQ(characterCount(""), 0U);
  EXPECT_EQ(characterCount("Für Élise"), 9U);
  EXPECT_EQ(characterCount("\xF0\x9D\x84\x9E\xE2\x99\xAD"), 2U);  // clef, flat sign
  EXPECT_EQ(characterCount("a\xC3"), 2U);                         // cut short
  EXPECT_EQ(characterCount("\xC0\xAF"), 2U);                      // overlong
  EXPECT_EQ(characterCount("\xED\xA0\x80"), 3U);                  // surrogate
  EXPECT_EQ(characterCount("\xF4\x90\x80\x80"), 4U);              // beyond the last code point
  EXPECT_EQ(characters("aé\xFF♭"), (std::vector<std::string>{"a", "é", "\xFF", "♭"}));
}

}  // namespace
}  // namespace korvel::platform
