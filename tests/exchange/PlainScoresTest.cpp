// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "exchange/plain/AbcWriter.h"
#include "exchange/plain/AlphaTexWriter.h"

namespace korvel::exchange {
namespace {

/// A pick-up, a triplet, a tie from a quarter to a sixteenth, accidentals, and a lower voice.
Score score() {
  Score made;
  made.title = "A \"B\"";
  made.openStrings = {40, 45, 50, 55, 59, 64};
  made.key = ScoreKey{7, false};
  const ScoreTone open{5, 0, 64};
  const ScoreTone sharp{2, 3, 53};
  const ScoreTone flat{4, 1, 60};
  ScoreBar pickUp{{3, 4}, {{12, {open}, {}}}, {}, 12, {}};
  ScoreBar bar{{3, 4},
               {{8, {sharp, flat}, ScoreHarmony{9, "m7"}},
                {8, {{2, 4, 54}}, ScoreHarmony{9, "m7"}},
                {8, {}, {}},
                {30, {open}, ScoreHarmony{9, "m7"}},
                {18, {}, {}}},
               {{72, {{0, 3, 43}}, {}}},
               0,
               90};
  made.bars = {pickUp, bar};
  return made;
}

TEST(PlainScoresTest, writeVoicesTripletsTiesAndNames) {
  EXPECT_EQ(alphaTex(score()),
            "\\title \"A 'B'\"\n\\tempo 120\n.\n\\track \"Guitar\"\n\\staff {tabs}\n"
            "\\instrument 25\n\\tuning E4 B3 G3 D3 A2 E2\n\\voice\n"
            "\\ac \\ts 3 4 \\ks G (0.1).8 |\n"
            "\\tempo 90 (3.4 1.2).8 {tu 3 ch \"Am7\"} (4.4).8 {tu 3} r.8 {tu 3} (0.1).4 (-.1).16 "
            "r.8 {d} |\n\\voice\nr.8 |\n(3.6).2 {d} |\n");
  EXPECT_EQ(abcNotation(score()),
            "X:1\nT:A \"B\"\nM:3/4\nL:1/8\nQ:1/4=120\nK:G clef=treble-8\n"
            "[V:1] [e] |\n[V:2] x |\n"
            "[V:1] [Q:1/4=90] \"Am7\"(3:2:3 [=Fc] [^F] z [e2-] [e/2] z3/2 |\n[V:2] [G,6] |\n");
}

}  // namespace
}  // namespace korvel::exchange
