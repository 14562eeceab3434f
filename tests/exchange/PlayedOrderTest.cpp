// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/PlayedOrder.h"

#include <gtest/gtest.h>

#include <sstream>

#include "platform/text/UserError.h"

namespace korvel::exchange {
namespace {

/// One word a bar: its letter, then its signs: "|:" ":2", "e1" "e23" for endings, "S" segno, "T" to
/// coda, "C" coda, "F" fine, "dc" "ds", with "al" "fine" or "coda" as "dcf" "dcc" "dsf" "dsc".
std::string played(const std::string& song) {
  std::istringstream words(song);
  std::vector<BarSigns> bars;
  std::string letters;
  for (std::string word; words >> word;) {
    std::istringstream signs(word);
    std::string sign;
    std::getline(signs, sign, '.');
    letters += sign;
    BarSigns bar;
    while (std::getline(signs, sign, '.')) {
      if (sign == "|:") bar.opensRepeat = true;
      if (sign[0] == ':') bar.timesPlayed = sign[1] - '0';
      if (sign[0] == 'e')
        for (const char round : sign.substr(1)) bar.endings |= 1U << (round - '1');
      if (sign == "S") bar.isSegno = true;
      if (sign == "T") bar.isToCoda = true;
      if (sign == "C") bar.isCoda = true;
      if (sign == "F") bar.isFine = true;
      if (sign[0] != 'd') continue;
      bar.jump = sign[1] == 's' ? BarSigns::Jump::dalSegno : BarSigns::Jump::daCapo;
      if (sign.ends_with('f')) bar.until = BarSigns::Until::fine;
      if (sign.ends_with("cc") || sign.ends_with("sc")) bar.until = BarSigns::Until::coda;
    }
    bars.push_back(bar);
  }
  std::string order;
  for (const std::size_t bar : playedOrder(bars)) order += letters[bar];
  return order;
}

TEST(PlayedOrderTest, barsArePlayedAsTheirSignsSay) {
  EXPECT_EQ(played("a b c"), "abc");
  EXPECT_EQ(played("a b.:2 c"), "ababc");
  EXPECT_EQ(played("a b.|:.:3 c.|: d.:2"), "abbbcdcd");
  EXPECT_EQ(played("a.|: b.e1.:2 c.e2 d"), "abacd");
  EXPECT_EQ(played("a.|: b.e12.:3 c.e3 d.|:.:2"), "ababacdd") << "an ending of two rounds";
  EXPECT_EQ(played("a.|: b.e1.:2 c.e2.:2 d"), "abacd") << "a last ending that closes too";
  EXPECT_EQ(played("a b.F c.dcf"), "abcab");
  EXPECT_EQ(played("a b.S c.T d.dsc e.C"), "abcdbce");
  EXPECT_EQ(played("a.|: b.e1.:2 c.e2 d.dc"), "abacdacd") << "the last ending after a jump";
  EXPECT_EQ(played("a.ds b.:1"), "aab") << "a jump to no segno is one to the beginning";
}

TEST(PlayedOrderTest, endlessRepeatsAreRefused) {
  std::vector<BarSigns> bars(100);
  for (BarSigns& bar : bars) bar.timesPlayed = 1000;
  EXPECT_THROW(playedOrder(bars), platform::UserError);
}

}  // namespace
}  // namespace korvel::exchange
