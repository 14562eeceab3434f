// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/UserText.h"

#include "platform/text/UserError.h"
#include "support/Testing.h"

namespace korvel::platform {
namespace {

/// A language in which the file comes last.
std::string backwards(const Phrase& phrase) {
  const std::string_view english = phrase.english;
  if (english == "%1: %2") return "%2 (%1)";
  return english == "no more than %1" ? "höchstens %1" : phrase.english;
}

TEST(UserTextTest, isJoinedInTheWordsOfALanguage) {
  const UserText inner(phrase("Test", "no more than %1"), 50);
  const UserText text(phrase("Test", "%1: %2"), "a.wav", inner);
  EXPECT_EQ(text.english(), "a.wav: no more than 50");
  EXPECT_EQ(text.in(backwards), "höchstens 50 (a.wav)");
  EXPECT_TRUE(UserText().empty() && !text.empty());
}

TEST(UserTextTest, takesNamesAsTheyAre) {
  const UserText text(phrase("Test", "%1: %2"), "50 % %2", "%1");
  EXPECT_EQ(text.english(), "50 % %2: %1");
  EXPECT_EQ(UserText::verbatim("%1").english(), "%1");
}

TEST(UserTextTest, isWhatAnExceptionSays) {
  const auto told = [](const std::exception& exception) { return textOf(exception).in(backwards); };
  const UserError error(phrase("Test", "%1: %2"), "a.wav", "gone");
  EXPECT_STREQ(error.what(), "a.wav: gone");
  EXPECT_EQ(told(error), "gone (a.wav)");
  EXPECT_EQ(told(std::runtime_error("%1: %2")), "%1: %2");
  EXPECT_NE(told(std::bad_alloc()).find("not enough memory"), std::string::npos);
}

}  // namespace
}  // namespace korvel::platform
