// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <cctype>
#include <map>
#include <optional>

#include "exchange/plain/AbcWriter.h"
#include "exchange/plain/AlphaTexWriter.h"

namespace korvel::exchange {
namespace {

/// A pick-up, a triplet, a tie from a quarter to a sixteenth, accidentals, and a lower voice.
Score score() {
  Score made;
  made.title = "100% \"B\"\\C";
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
            "\\title \"100% 'B''C\"\n\\tempo 120\n.\n\\track \"Guitar\"\n\\staff {tabs}\n"
            "\\instrument 25\n\\tuning E4 B3 G3 D3 A2 E2\n\\voice\n"
            "\\ac \\ts 3 4 \\ks G (0.1).8 |\n"
            "\\tempo 90 (3.4 1.2).8 {tu 3 ch \"Am7\"} (4.4).8 {tu 3} r.8 {tu 3} (0.1).4 (-.1).16 "
            "r.8 {d} |\n\\voice\nr.8 |\n(3.6).2 {d} |\n");
  EXPECT_EQ(abcNotation(score()),
            "X:1\nT:100\\% \"B\"\\\\C\nM:3/4\nL:1/8\nQ:1/4=120\nK:G clef=treble-8\n"
            "[V:1] [e] |\n[V:2] x |\n"
            "[V:1] [Q:1/4=90] \"Am7\"(3:2:3 [=Fc] [^F] z [e2-] [e/2] z3/2 |\n[V:2] [G,6] |\n");
}

/// The pitches of a text without names, as its readers take them: signs count to the end of the
/// bar.
std::vector<int> pitchesIn(const std::string& abc) {
  constexpr std::string_view kFifths = "FCGDAEB";
  const std::size_t key = abc.find("K:") + 2;
  const bool isMinor = abc[abc.find_first_of(" m", key)] == 'm';
  const int shift = abc[key + 1] == '#' ? 7 : abc[key + 1] == 'b' ? -7 : 0;
  const int fifths = static_cast<int>(kFifths.find(abc[key])) - 1 + shift - (isMinor ? 3 : 0);
  std::map<char, int> alters;
  for (int i = 0; i < 7; ++i)
    alters[kFifths[static_cast<std::size_t>(i)]] = i < fifths ? 1 : i >= 7 + fifths ? -1 : 0;
  std::vector<int> pitches;
  std::optional<int> alter;
  for (const char c : abc.substr(abc.find('\n', key))) {
    const char step = static_cast<char>(std::toupper(c));
    if (c == '^' || c == '_' || c == '=') alter = c == '^' ? 1 : c == '_' ? -1 : 0;
    if (c == ',' || c == '\'') pitches.back() += c == ',' ? -12 : 12;
    if (!alters.contains(step)) continue;
    constexpr int kSteps[] = {9, 11, 0, 2, 4, 5, 7};
    if (alter) alters[step] = *alter;
    alter.reset();
    pitches.push_back((c == step ? 48 : 60) + kSteps[step - 'A'] + alters[step]);
  }
  return pitches;
}

TEST(PlainScoresTest, keySignaturesAreThoseThatTheNotesCountOn) {
  for (int key = 0; key < 24; ++key) {
    Score score;
    score.openStrings = {40, 45, 50, 55, 59, 64};
    score.key = ScoreKey{key % 12, key >= 12};
    ScoreBar bar{.meter = {6, 4}, .events = {}};
    std::vector<int> pitches;
    for (int pitch = 45; pitch < 57; ++pitch) pitches.push_back(pitch);
    for (const int pitch : pitches) bar.events.push_back({kUnitsOfEighth, {{0, 0, pitch}}, {}});
    score.bars = {bar};
    EXPECT_EQ(pitchesIn(abcNotation(score)), pitches) << abcNotation(score);
  }
}

}  // namespace
}  // namespace korvel::exchange
