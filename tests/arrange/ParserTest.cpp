// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/harmony/Parser.h"

#include "arrange/harmony/Scanner.h"
#include "model/book/QBHarmony.h"
#include "model/book/QBToneOfHarmony.h"
#include "model/store/QBTabMgr.h"
#include "support/Testing.h"
#include "support/store/ScratchStore.h"

namespace korvel {
namespace {

using Lines = std::vector<std::string>;

struct ParserTest : testing::Test {
  std::string file(const std::string& content) {
    const std::string name = m_store.folder().file("declarations");
    test::writeFile(name, content);
    return name;
  }
  /// What a file declares, each as "type order: step step ".
  Lines parse(const std::string& content) {
    Lines lines;
    for (const auto& harmony : Parser(QBTabMgr::db(), file(content)).parseHarmonies()) {
      std::string line = harmony->type() + ' ' + std::to_string(harmony->order()) + ": ";
      for (const auto& tone : harmony->allTones()) line += std::to_string(tone->step()) + ' ';
      lines.push_back(line);
    }
    return lines;
  }

  Lines tokens(const std::string& content) {
    Lines tokens;
    Scanner scanner(file(content));
    while (const auto token = scanner.nextToken()) tokens.push_back(token->value);
    EXPECT_EQ(scanner.nextToken(), std::nullopt) << "the end is for good";
    return tokens;
  }

  test::ScratchStore m_store;
};

TEST_F(ParserTest, tokensStandBetweenAngleBrackets) {
  EXPECT_EQ(tokens("> comment <*> <> more\n< m 7 >>\r\n<\n>"), (Lines{"*", "", " m 7 ", "\n"}));
  EXPECT_EQ(tokens("<1> <half <2> <end"), (Lines{"1", "2"})) << "cut, or started anew";
  const std::string odd("a\0\xff", 3);
  EXPECT_EQ(tokens("<" + odd + ">"), Lines{odd});
  EXPECT_EQ(tokens("<1> <2!> <3>"), Lines{"1"}) << "an exclamation mark ends the file anywhere";
}

TEST_F(ParserTest, createsEveryHarmonyWithItsStepsInOrder) {
  const std::string text =
      "minor: <*> <m> <order> <302> <steps> <0> <3> <4> <->\n"
      "<* any mark> <> <> < 301 > <> <0><4><3> <-- end>\n<*> <last> <> <7> <> <0> <5>";
  EXPECT_EQ(parse(text), (Lines{"m 302: 0 3 4 ", " 301: 0 4 3 ", "last 7: 0 5 "}));
  QBTabMgr::db().save();
  QBTabMgr::clearDb();
  QBTabMgr::db().loadHarmonies();
  EXPECT_EQ(QBTabMgr::db().findHarmonyByIndex(0)->type(), "m") << "the largest order comes first";
  EXPECT_EQ(QBTabMgr::db().findHarmonyByIndex(0)->allTones().at(2)->step(), 4);
  EXPECT_EQ(QBTabMgr::db().harmonies().size(), 3U);
}

TEST_F(ParserTest, stopsAtADeclarationThatLacksATokenAndKeepsTheOnesBefore) {
  const std::string good = "<*> <m> <order> <2> <steps> <0> <-> ";
  for (const char* rest :
       {"", "<*>", "<*> <7>", "<*> <7> <order>", "<*> <7> <order> <3>", "<*> <7> <order> <3> <ste",
        "<m7> <order> <3> <steps> <0> <->", "fine! <*> <7> <order> <3> <steps> <0> <->"}) {
    EXPECT_EQ(parse(good + rest), Lines{"m 2: 0 "}) << rest;
  }
  EXPECT_EQ(parse("<*> <m> <order> <2> <steps>"), Lines{"m 2: "}) << "a harmony without tones";
  for (const std::string& none : {m_store.folder().file("missing"), m_store.folder().file("")})
    EXPECT_TRUE(Parser(QBTabMgr::db(), none).parseHarmonies().empty()) << none;
}

TEST_F(ParserTest, countsWithOddNumbersWithoutOverflow) {
  EXPECT_EQ(parse("<*> <x> <order> <many> <steps> <0> <third> <99999999999> <->"),
            Lines{"x 0: 0 0 2147483647 "});
  QBHarmony* harmony = QBTabMgr::db().createHarmony("high", std::numeric_limits<int>::max());
  harmony->addStep(0, 11);
  harmony->addStep(1, std::numeric_limits<int>::max());  // 7 above a multiple of 12
  EXPECT_TRUE(harmony->includesNote(0, 6));
  EXPECT_EQ(harmony->countTones(11, 1U << 10 | 1U << 5), 2);
}

TEST_F(ParserTest, recognisesTheMarksOfTokens) {
  Parser parser(QBTabMgr::db(), file("<*1> <x*> <SoundItem> <SoundItems>"));
  EXPECT_TRUE(parser.isNewLine());
  EXPECT_FALSE(parser.isNewLine());
  EXPECT_TRUE(parser.isNewSoundItem());
  EXPECT_FALSE(parser.isNewSoundItem());
  EXPECT_FALSE(parser.isNewSoundItem()) << "nothing left";
}

}  // namespace
}  // namespace korvel
