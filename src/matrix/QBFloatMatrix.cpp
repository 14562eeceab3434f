// SPDX-License-Identifier: GPL-3.0-or-later
#include "matrix/QBFloatMatrix.h"

#include <algorithm>

#include "matrix/CellText.h"

namespace korvel {
namespace {

constexpr float kNoValue = -1.0F;
constexpr float kHeldValue = -2.0F;
constexpr float kBlankValue = -3.0F;
constexpr int kFretColumn = 1;

std::string textOf(float f) {
  if (f == kNoValue) return "--";
  if (f == kHeldValue) return "~~";
  if (f == kBlankValue) return "  ";
  return cellText(f);
}

}  // namespace

float QBFloatMatrix::getFloat(int column, int row) const {
  const QBMatrixValue* cell = get(column, row);
  return cell ? cell->getFloat() : 0.0F;
}

float QBFloatMatrix::getFloatOrEmpty(int column, int row) const {
  const QBMatrixValue* cell = get(column, row);
  return cell ? cell->getFloat() : kNoValue;
}

int QBFloatMatrix::getMinimumFretLine() const {
  int best = 0;
  int minimum = 1000;
  for (int row = 0; row < height(); ++row) {
    const int fret = truncated(getFloat(kFretColumn, row));
    if (fret >= minimum) continue;
    best = row;
    minimum = fret;
  }
  return best;
}

std::string QBFloatMatrix::toString() const {
  std::string text;
  for (int row = height() - 1; row >= 0; --row) {
    for (int column = 0; column < width(); ++column) text += textOf(getFloatOrEmpty(column, row));
    text += "\r\n";
  }
  return text;
}

void QBFloatMatrix::comprise() {
  for (int row = 0; row < height(); ++row) {
    float held = kNoValue;
    for (int column = 0; column < width(); ++column) {
      const float f = getFloatOrEmpty(column, row);
      if (f != kNoValue && f == held) setFloat(column, row, kHeldValue);
      held = f;
    }
  }
}

void QBFloatMatrix::addMatrix(const QBFloatMatrix& other) {
  const std::vector<QBMatrixLine> copied = other.m_lines;
  m_lines.insert(m_lines.end(), copied.begin(), copied.end());
  m_width = std::max(m_width, other.m_width);
}

}  // namespace korvel
