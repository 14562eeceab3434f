// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files/ZipArchive.h"

#include <gtest/gtest.h>

#include "platform/text/UserError.h"

namespace korvel::platform {
namespace {

TEST(ZipArchive, keepsEntriesAndRefusesWhatIsDamagedOrTooMuch) {
  const std::vector<ZipEntry> entries{{"mimetype", "application/x", true},
                                      {"Content/a.xml", std::string(5000, 'x')},
                                      {"zeros", std::string(std::size_t{3} << 20, '\0')}};
  const std::string bytes = zipped(entries);
  EXPECT_EQ(bytes, zipped(entries));

  ZipArchive archive(bytes);
  EXPECT_EQ(archive.names(), (std::vector<std::string>{"mimetype", "Content/a.xml", "zeros"}));
  EXPECT_EQ(archive.read("mimetype"), "application/x");
  EXPECT_EQ(archive.read("Content/a.xml"), std::string(5000, 'x'));
  EXPECT_EQ(archive.read("missing"), std::nullopt);
  EXPECT_THROW(archive.read("zeros"), UserError) << "a thousand times as large as it is packed";
  EXPECT_THROW(ZipArchive(bytes, {.bytesOfEntry = 4999}).read("Content/a.xml"), UserError);
  EXPECT_THROW(ZipArchive(bytes, {.entries = 2}), UserError);

  std::string changed = bytes;
  changed[bytes.find("application/x")] ^= 1;
  EXPECT_THROW(ZipArchive(changed).read("mimetype"), UserError) << "its sum does not fit";
  for (const std::size_t size : {std::size_t{0}, std::size_t{30}, bytes.size() - 5})
    EXPECT_THROW(ZipArchive(bytes.substr(0, size)), UserError);
}

}  // namespace
}  // namespace korvel::platform
