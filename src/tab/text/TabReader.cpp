// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/text/TabReader.h"

#include <algorithm>
#include <cctype>
#include <sstream>

#include "music/Neck.h"
#include "platform/text/Utf8.h"

namespace korvel {
namespace {

constexpr int kHighestFret = 24;
constexpr int kTen = 10;

bool isDigit(char c) { return std::isdigit(static_cast<unsigned char>(c)) != 0; }

/// A character for each that is seen; lines that are drawn with signs of their own become plain.
std::string plain(const std::string& line) {
  std::string text;
  for (const std::string& seen : platform::characters(line)) {
    if (seen == "–" || seen == "—" || seen == "─" || seen == "‐" || seen == "‑")
      text += '-';
    else if (seen == "│" || seen == "┃" || seen == "║" || seen == "¦")
      text += '|';
    else
      text += seen.size() == 1 && seen != "\t" && seen != "\r" ? seen : " ";
  }
  return text;
}

bool isNameOfString(char c) { return (c >= 'A' && c <= 'H') || (c >= 'a' && c <= 'h'); }

/// Takes the name of a string off the beginning of a text and answers it.
char takeName(std::string& text) {
  const std::size_t at = text.find_first_not_of(' ');
  if (at == std::string::npos || !isNameOfString(text[at])) return ' ';
  const char name = text[at];
  const bool isAltered = at + 1 < text.size() && (text[at + 1] == '#' || text[at + 1] == 'b');
  text.erase(0, at + (isAltered ? 2 : 1));
  return name;
}

/// Such as "x2" behind the last bar.
void dropRemark(std::string& body) {
  const std::size_t bar = body.rfind('|');
  if (bar != std::string::npos && body.find('-', bar) == std::string::npos) body.erase(bar);
}

int fretOf(const std::string& body, std::size_t at) { return body[at] - '0'; }

bool isOfTwoDigits(const std::string& body, std::size_t at, std::size_t end) {
  if (end - at != 2 || fretOf(body, at) == 0) return false;
  return fretOf(body, at) * kTen + fretOf(body, at + 1) <= kHighestFret;
}

}  // namespace

TabReader::TabReader(std::string_view text) {
  std::istringstream rows{std::string(text)};
  Lines lines;
  bool isWhole = true;
  for (std::string row; std::getline(rows, row);) {
    if (const auto line = lineOf(plain(row))) {
      lines.push_back(*line);
      continue;
    }
    isWhole = readSystems(lines) && isWhole;
    lines.clear();
  }
  if (!readSystems(lines) || !isWhole) m_chords.clear();
}

/// Words may have a bar and a dash, too, but more of other characters.
std::optional<TabReader::Line> TabReader::lineOf(const std::string& text) {
  const std::size_t bar = text.find('|');
  if (bar == std::string::npos || text.find('-') == std::string::npos) return std::nullopt;
  const std::string before = text.substr(0, bar);
  Line line{' ', text.substr(bar + 1)};
  if (before.find('-') != std::string::npos) {
    line.body = text;
    line.label = takeName(line.body);
  } else if (const std::size_t last = before.find_last_not_of(' '); last != std::string::npos) {
    line.label = before[last];
  } else {
    line.label = takeName(line.body);
  }
  dropRemark(line.body);
  const auto drawn =
      std::ranges::count_if(line.body, [](char c) { return c == '-' || c == '|' || isDigit(c); });
  const auto blank = std::ranges::count(line.body, ' ');
  if (2 * drawn < std::ssize(line.body) - blank) return std::nullopt;
  return line;
}

/// Answers whether the lines are those of whole systems.
bool TabReader::readSystems(const Lines& lines) {
  if (lines.size() % kStrings != 0) return false;
  for (std::size_t first = 0; first < lines.size(); first += kStrings) readSystem(&lines[first]);
  return true;
}

void TabReader::readSystem(const Line* lines) {
  const bool isUpsideDown = lines[0].label == 'E' && lines[kStrings - 1].label == 'e';
  std::vector<Number> numbers;
  std::size_t width = 0;
  for (int row = 0; row < kStrings; ++row) {
    const int string = isUpsideDown ? row : kStrings - 1 - row;
    readNumbers(lines[row].body, string, numbers);
    width = std::max(width, lines[row].body.size());
  }
  addChords(std::move(numbers));
  m_column += static_cast<int>(width);
}

void TabReader::readNumbers(const std::string& body, int string, std::vector<Number>& numbers) {
  for (std::size_t at = 0; at < body.size(); ++at) {
    if (!isDigit(body[at])) continue;
    std::size_t end = at;
    while (end < body.size() && isDigit(body[end])) ++end;
    const bool isReached = at > 0 && (body[at - 1] == 'b' || body[at - 1] == 'r');
    const std::size_t bracket = at > 0 && (body[at - 1] == '(' || body[at - 1] == '<') ? 1 : 0;
    if (isOfTwoDigits(body, at, end) && !isReached)
      numbers.push_back(
          {at - bracket, at + 1, {string, fretOf(body, at) * kTen + fretOf(body, at + 1)}});
    else if (!isReached)
      for (std::size_t digit = at; digit < end; ++digit)
        numbers.push_back(
            {digit == at ? at - bracket : digit, digit, {string, fretOf(body, digit)}});
    at = end - 1;
  }
}

void TabReader::addChords(std::vector<Number> numbers) {
  std::ranges::stable_sort(numbers, {}, &Number::first);
  std::size_t reached = 0;
  for (bool isFirst = true; const Number& number : numbers) {
    const bool isBeside = !isFirst && number.first <= reached &&
                          std::ranges::none_of(m_chords.back().tones, [&](const auto& tone) {
                            return tone.string == number.tone.string;
                          });
    if (!isBeside) {
      m_chords.push_back({m_column + static_cast<int>(number.first), {}});
      reached = number.last;
    }
    m_chords.back().tones.push_back(number.tone);
    reached = std::max(reached, number.last);
    isFirst = false;
  }
}

}  // namespace korvel
