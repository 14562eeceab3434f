// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/text/QBTabMatrix.h"

#include "support/Testing.h"

namespace korvel {
namespace {

TEST(QBTextMatrix, writesOneCharacterACell) {
  QBTextMatrix matrix;
  matrix.horText(1, 0, "F\u266F\u00E9!");
  matrix.vertText(2, 0, "\u00FCb");
  matrix.horLine(0, 2, 2);
  matrix.vertLine(3, 1, 2);
  matrix.horLine(0, 5, 0);
  matrix.vertLine(0, 5, -1);
  EXPECT_EQ(matrix.getString(1, 0), "F");
  EXPECT_EQ(matrix.getString(2, 0), "\u00FC");
  EXPECT_EQ(matrix.getString(3, 0), "\u00E9");
  EXPECT_EQ(matrix.getString(2, 1), "b");
  EXPECT_EQ(matrix.getString(1, 2), "-");
  EXPECT_EQ(matrix.getString(3, 2), "|");
  EXPECT_EQ(matrix.getString(0, 1), " ");
  EXPECT_EQ(matrix.getString(0, 5), std::nullopt);
  EXPECT_THROW(matrix.horText(0, -1, "x"), std::out_of_range);
}

TEST(QBTabMatrix, cutsTitlesByCharacters) {
  const auto firstSystemOf = [](std::size_t length) {
    std::string title;
    for (std::size_t i = 0; i < length; ++i) title += "\u00E4";
    QBTabMatrix matrix;
    matrix.newPage(title);
    EXPECT_EQ(matrix.getString(107, 1).has_value(), length >= 100);
    EXPECT_FALSE(matrix.getString(108, 1).has_value());
    EXPECT_EQ(matrix.getString(8, 2).has_value(), length > 100);
    return matrix.m_yPos;
  };
  EXPECT_EQ(firstSystemOf(99), 3);
  EXPECT_EQ(firstSystemOf(100), 4);
  EXPECT_EQ(firstSystemOf(150), 4);
}

TEST(QBTabMatrix, trimsBlankRowsAtTheTopOnly) {
  QBTabMatrix matrix;
  matrix.horText(0, 2, "   ");
  matrix.horText(1, 3, "a");
  matrix.horText(0, 5, "bc");
  matrix.m_yPos = 5;
  EXPECT_EQ(matrix.toStringInverted(), " a \n   \nbc \n");
  EXPECT_EQ(matrix.m_yPos, 2);
  QBTabMatrix blank;
  blank.horText(0, 3, " ");
  EXPECT_EQ(blank.toStringInverted(), "");
}

TEST(QBTabMatrix, plainReadOutIsUpsideDownAndEndsAtTheCursor) {
  QBTabMatrix matrix;
  matrix.horText(0, 0, "abc");
  matrix.horText(1, 1, "d");
  EXPECT_EQ(matrix.toString(), " d\r\nab\r\n");
}

}  // namespace
}  // namespace korvel
