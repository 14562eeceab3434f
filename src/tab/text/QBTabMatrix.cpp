// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/text/QBTabMatrix.h"

#include <algorithm>
#include <iterator>
#include <vector>

#include "music/Neck.h"
#include "platform/text/Utf8.h"

namespace korvel {
namespace {

constexpr int kRowsPerPage = 64;
constexpr std::size_t kTitleWidth = 100;
constexpr int kRowsOfClosedSystem = 8;
constexpr int kFirstColumnOfNames = 2;

std::string joined(const std::vector<std::string>& characters, std::size_t from, std::size_t to) {
  std::string text;
  for (std::size_t i = from; i < std::min(to, characters.size()); ++i) text += characters[i];
  return text;
}

/// At most 100 characters each. A title that fills its last piece is followed by an empty one: the
/// row under it stays free, and stored tablatures are laid out so.
std::vector<std::string> titlePieces(std::string_view title) {
  const auto characters = platform::characters(title);
  std::vector<std::string> pieces;
  for (std::size_t from = 0; from <= characters.size(); from += kTitleWidth)
    pieces.push_back(joined(characters, from, from + kTitleWidth));
  return pieces;
}

bool isBlank(const QBMatrixLine& line) {
  for (int x = 0; x < line.length(); ++x) {
    const std::string_view text = line.get(x)->getString();
    if (text.find_first_not_of(' ') != std::string_view::npos) return false;
  }
  return true;
}

}  // namespace

void QBTabMatrix::newPage(std::string_view title, int capo) {
  const auto pieces = titlePieces(title);
  m_capo = capo;
  m_yPos = m_page * kRowsPerPage;
  horText(4, m_yPos, "Recorded by Korvel");
  for (const auto& piece : pieces) horText(8, ++m_yPos, piece);
  if (capo > 0) horText(8, ++m_yPos, "Capo " + std::to_string(capo) + ", frets from the nut");
  m_yPos += 2;
  ++m_page;
}

void QBTabMatrix::openSystem(const std::vector<std::string>& names) {
  if (m_systems.empty() || m_systems.back() != m_yPos) m_systems.push_back(m_yPos);
  barLine(1);
  m_xPos = kFirstColumnOfNames + drawNames(names);
  stringLines(m_xPos, 4);
  m_xPos += 5;
}

/// How many columns they take.
int QBTabMatrix::drawNames(const std::vector<std::string>& names) {
  std::size_t widest = 1;
  for (int row = m_yPos; const std::string& name : names) {
    horText(kFirstColumnOfNames, row++, name);
    widest = std::max(widest, platform::characterCount(name));
  }
  return static_cast<int>(widest);
}

void QBTabMatrix::closeSystem() {
  m_xPos += 6;
  barLine(m_xPos);
  m_xPos = 3;
  m_yPos += kRowsOfClosedSystem;
}

void QBTabMatrix::closeMeasure() {
  stringLines(m_xPos++, 1);
  barLine(m_xPos++);
}

void QBTabMatrix::addEmptyChord() { stringLines(++m_xPos, 2); }

void QBTabMatrix::trimLeadingLines() {
  const auto firstDrawn = std::ranges::find_if_not(m_lines, isBlank);
  const int blank = static_cast<int>(std::distance(m_lines.begin(), firstDrawn));
  m_yPos -= blank;
  for (DrawnChord& drawn : m_drawn) drawn.y -= blank;
  for (int& row : m_systems) row -= blank;
  m_lines.erase(m_lines.begin(), firstDrawn);
}

std::string QBTabMatrix::toStringInverted() {
  std::string text;
  reading(text).finish();
  return text;
}

platform::Slices QBTabMatrix::reading(std::string& text) {
  trimLeadingLines();
  for (int y = 0; y < height(); ++y) {
    addRow(text, y, width(), "\n");
    co_yield static_cast<double>(y) / height();
  }
}

std::string QBTabMatrix::toString() const {
  std::string text;
  for (int y = height() - 1; y >= 0; --y) addRow(text, y, m_xPos, "\r\n");
  return text;
}

void QBTabMatrix::stringLines(int x, int n) {
  for (int string = 0; string < kStrings; ++string) horLine(x, m_yPos + string, n);
}

void QBTabMatrix::barLine(int x) { vertLine(x, m_yPos, kStrings); }

// A page has a hundred thousand cells, nearly all of one byte, which are appended as such.
void QBTabMatrix::addRow(std::string& text, int y, int columns, std::string_view end) const {
  const QBMatrixLine& line = m_lines.at(static_cast<std::size_t>(y));
  const int drawn = std::clamp(columns, 0, line.length());
  for (int x = 0; x < drawn; ++x) {
    const std::string_view cell = line.get(x)->getString();
    if (cell.size() == 1)
      text += cell.front();
    else
      text += cell;
  }
  text.append(static_cast<std::size_t>(std::max(columns - drawn, 0)), ' ').append(end);
}

}  // namespace korvel
