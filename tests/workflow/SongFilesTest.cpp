// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/exporting/SongFiles.h"

#include "platform/text/Utf8.h"
#include "support/Testing.h"

namespace korvel {
namespace {

TEST(SongFilesTest, titlesBecomeNamesThatFileSystemsTake) {
  EXPECT_EQ(fileNameOf("01. Prelude"), "01. Prelude");
  EXPECT_EQ(fileNameOf("AC/DC\nlive\t"), "AC_DC_live_");
  EXPECT_EQ(fileNameOf(".."), "_..");
  EXPECT_EQ(fileNameOf(""), "_");
  std::string accents;
  for (int i = 0; i < 150; ++i) accents += "\u00e4";
  const std::string name = fileNameOf("x" + accents);
  EXPECT_LE(name.size(), 200U);
  EXPECT_EQ(platform::printable(name), name) << "a character was cut in two";
}

}  // namespace
}  // namespace korvel
