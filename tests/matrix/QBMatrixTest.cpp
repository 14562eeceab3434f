// SPDX-License-Identifier: GPL-3.0-or-later
#include "matrix/QBMatrix.h"

#include <initializer_list>

#include "matrix/QBFloatMatrix.h"
#include "support/Testing.h"
#include "support/store/ScratchFolder.h"

namespace korvel {
namespace {

/// Rows of numbers, row 0 first.
QBFloatMatrix matrixOf(std::initializer_list<std::initializer_list<float>> rows) {
  QBFloatMatrix matrix;
  int row = 0;
  for (const auto& numbers : rows) {
    int column = 0;
    for (const float number : numbers) matrix.setFloat(column++, row, number);
    ++row;
  }
  return matrix;
}

QBMatrixValue textCell(std::string_view text) {
  QBMatrixValue cell;
  cell.setString(text);
  return cell;
}

TEST(QBMatrixValue, keepsTextsOfAnyLengthThroughCopies) {
  EXPECT_EQ(QBMatrixValue().getString(), " ");
  for (const std::string& text : {std::string(), std::string("\xF0\x9F\x8E\xB8"),
                                  std::string("a\0b", 3), std::string(100, 'x')}) {
    QBMatrixValue cell = textCell("something before");
    cell.setString(text);
    QBMatrixValue copy = textCell("something else");
    copy = cell;
    cell.setString("-");
    EXPECT_EQ(copy.getString(), text);
    EXPECT_EQ(cell.getString(), "-");
  }
}

TEST(QBMatrix, growsToTheCellThatIsSet) {
  QBMatrix matrix(7);
  EXPECT_EQ(matrix.width(), 1);
  matrix.set(3, 2, QBMatrixValue(5.0F));
  EXPECT_EQ(matrix.height(), 3);
  EXPECT_EQ(matrix.width(), 4);
  EXPECT_EQ(matrix.get(0, 1), nullptr);
  EXPECT_EQ(matrix.get(2, 2)->getFloat(), 7.0F);
  EXPECT_EQ(matrix.get(2, 2)->getString(), " ");
  EXPECT_EQ(matrix.hasElement(2, 2), nullptr);
  EXPECT_EQ(matrix.hasElement(3, 2)->getFloat(), 5.0F);
  matrix.set(1, 2, QBMatrixValue(6.0F));
  EXPECT_EQ(matrix.width(), 4);
  EXPECT_EQ(matrix.toString(), " 7 6 7 5\r\n        \r\n        \r\n");
}

TEST(QBMatrix, readsBesideItselfButDoesNotWriteThere) {
  QBFloatMatrix matrix = matrixOf({{1}});
  for (const auto& [column, row] : {std::pair(-1, 0), {0, -1}, {1, 0}, {0, 1}}) {
    EXPECT_EQ(matrix.get(column, row), nullptr);
    EXPECT_EQ(matrix.getFloat(column, row), 0.0F);
    EXPECT_EQ(matrix.getFloatOrEmpty(column, row), -1.0F);
  }
  EXPECT_THROW(matrix.setFloat(-1, 0, 1), std::out_of_range);
  EXPECT_THROW(matrix.setFloat(0, -1, 1), std::out_of_range);
}

TEST(QBMatrix, savesItsOwnText) {
  test::ScratchFolder folder;
  const QBFloatMatrix matrix = matrixOf({{-1, 12}, {3, -3, -2}});
  matrix.saveToFile(folder.file("grid.txt"));
  EXPECT_EQ(test::readFile(folder.file("grid.txt")), " 3  ~~\r\n--12--\r\n");
}

TEST(QBMatrixLine, isCompletedByTheNinthOne) {
  QBMatrixLine line(0);
  for (int column = 0; column < 8; ++column) line.set(2 * column, QBMatrixValue(1.0F));
  EXPECT_FALSE(line.isCompleted());
  line.set(1, QBMatrixValue(1.0F));
  EXPECT_TRUE(line.isCompleted());
}

TEST(QBFloatMatrix, findsTheFirstRowWithTheLowestFret) {
  EXPECT_EQ(QBFloatMatrix().getMinimumFretLine(), 0);
  EXPECT_EQ(matrixOf({{9, 3, 0}, {9, 1.9F, 1}, {9, 1, 2}}).getMinimumFretLine(), 1);
  EXPECT_EQ(matrixOf({{9, 3}, {9}}).getMinimumFretLine(), 1);
  EXPECT_EQ(matrixOf({{0, 1e30F}}).getMinimumFretLine(), 0);
}

TEST(QBFloatMatrix, showsHeldNumbersOnce) {
  QBFloatMatrix matrix = matrixOf({{5, 5, 5, 7, 5}, {3, 3, -1, -1}});
  matrix.comprise();
  EXPECT_EQ(matrix.toString(), " 3~~------\r\n 5~~~~ 7 5\r\n");
}

TEST(QBFloatMatrix, appendsTheRowsOfAnother) {
  QBFloatMatrix matrix = matrixOf({{1}});
  matrix.addMatrix(matrixOf({{2, 3}}));
  matrix.addMatrix(matrix);
  EXPECT_EQ(matrix.toString(), " 2 3\r\n 1--\r\n 2 3\r\n 1--\r\n");
}

}  // namespace
}  // namespace korvel
