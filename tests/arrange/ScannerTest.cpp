// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/Scanner.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/ScratchFolder.h"

namespace korvel {
namespace {

using Values = std::vector<std::string>;

Values valuesOf(Scanner& scanner) {
  Values values;
  while (const auto token = scanner.nextToken()) values.push_back(token->value);
  return values;
}

Values scan(const std::string& content) {
  test::ScratchFolder folder;
  test::writeFile(folder.file("declarations"), content);
  Scanner scanner(folder.file("declarations"));
  return valuesOf(scanner);
}

TEST(Scanner, readsWhatStandsBetweenAngleBrackets) {
  EXPECT_EQ(scan("> comment <*> <> more\n< m 7 >>\r\n<\n>"), (Values{"*", "", " m 7 ", "\n"}));
}

TEST(Scanner, dropsATokenThatIsCutOrStartedAnew) {
  EXPECT_EQ(scan("<1> <half <2> <end"), (Values{"1", "2"}));
}

TEST(Scanner, keepsZeroBytesAndHighBytes) {
  const std::string odd("a\0\xff", 3);
  EXPECT_EQ(scan("<" + odd + ">"), Values{odd});
}

TEST(Scanner, endsForGoodAtAnExclamationMarkAnywhere) {
  EXPECT_EQ(scan("<1> fine! <2>"), Values{"1"});
  test::ScratchFolder folder;
  test::writeFile(folder.file("declarations"), "<1> <2!> <3>");
  Scanner scanner(folder.file("declarations"));
  EXPECT_EQ(valuesOf(scanner), Values{"1"});
  EXPECT_EQ(valuesOf(scanner), Values{});
  EXPECT_EQ(scanner.readChar(), '!');
}

TEST(Scanner, findsNothingInAMissingFileOrAFolder) {
  test::ScratchFolder folder;
  Scanner missing(folder.file("missing"));
  EXPECT_EQ(valuesOf(missing), Values{});
  Scanner directory(folder.path());
  EXPECT_EQ(valuesOf(directory), Values{});
}

}  // namespace
}  // namespace korvel
