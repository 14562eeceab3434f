// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/QBChord.h"
#include "tab/QBTabMatrix.h"

#include <gtest/gtest.h>

#include <vector>

namespace korvel {
namespace {

/// The three rows of a glyph, joined by "/".
std::string glyph(int duration) {
  QBTabMatrix matrix;
  QBChord::setMetric(matrix, 0, 2, duration);
  std::string rows;
  for (int y = 0; y < 3; ++y) {
    for (int x = 0; x < 2; ++x) rows += matrix.getString(x, y).value_or(" ");
    if (y < 2) rows += '/';
  }
  return rows;
}

TEST(NoteGlyphs, everyDurationHasItsGlyph) {
  const std::vector<std::string> glyphs = {
      "  /  /x ", "| /- /- ", "| /- /  ", "| /-./  ", "| /  /  ", "| /  /  ",
      "|./  /  ", "|./  /  ", "| /o /  ", "| /o /  ", "| /o /  ", "| /o /  ",
      "|./o /  ", "|./o /  ", "|./o /  ", "|./o /  ", "o /  /  ", "o /  /  "};
  for (std::size_t duration = 0; duration < glyphs.size(); ++duration)
    EXPECT_EQ(glyph(static_cast<int>(duration)), glyphs[duration]) << duration;
  EXPECT_EQ(glyph(-1), "  /  /  ");
}

TEST(BeatRuler, givesEachChordItsPart) {
  EXPECT_EQ(QBChord::metricString(0, 4, 4, 4, 0), "1 . + .");
  EXPECT_EQ(QBChord::metricString(4, 4, 4, 4, 2), "2 . + .");
  EXPECT_EQ(QBChord::metricString(1, 2, 3, 4, 0), ". +");
  EXPECT_EQ(QBChord::metricString(10, 9, 6, 8, 0), "6 .");
  EXPECT_EQ(QBChord::metricString(12, 1, 3, 4, 0), "");
  EXPECT_EQ(QBChord::metricString(0, 4, 2, 4, 0), "");
}

TEST(BeatRuler, neverReachesTheLastSlotOfTwelveEighths) {
  EXPECT_EQ(QBChord::metricString(0, 24, 12, 8, 0),
            "1 . 2 . 3 . 4 . 5 . 6 . 7 . 8 . 9 .10 .11 .12");
  EXPECT_EQ(QBChord::metricString(23, 1, 12, 8, 0), "");
}

}  // namespace
}  // namespace korvel
