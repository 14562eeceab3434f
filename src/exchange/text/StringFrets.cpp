// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/text/StringFrets.h"

#include <algorithm>

namespace korvel::exchange {

namespace {

constexpr int kHighestFret = 24;
constexpr int kTen = 10;

/// A number on a string.
struct Number {
  std::size_t first;
  std::size_t last;
  std::size_t column;
  Struck::Tone tone;
};

bool isAnyOf(char32_t c, std::u32string_view set) {
  return set.find(c) != std::u32string_view::npos;
}

/// Reads a string of a bar from left to right.
class FretReader {
 public:
  FretReader(const Row& line, int string, std::vector<Number>& numbers,
             std::map<std::string, int>& left)
      : m_line(line), m_string(string), m_numbers(numbers), m_left(left) {}

  void read() {
    while (m_at < m_line.size()) {
      if (isDigit(m_line[m_at]))
        readDigits();
      else
        readSign();
    }
  }

 private:
  char32_t before(std::size_t n = 1) const { return m_at >= n ? m_line[m_at - n] : U'-'; }

  /// A bend, the way back from one, or what one of them is about to reach in brackets.
  bool isReached() const {
    return isAnyOf(before(), U"br^") || (before() == U'(' && isAnyOf(before(2), U"br^"));
  }

  void readDigits() {
    std::size_t end = m_at;
    while (isDigit(at(m_line, end))) ++end;
    if (isReached()) {
      // "b1/2" is half a tone, and no slide.
      if (at(m_line, end) == U'/' && isDigit(at(m_line, end + 1))) end += 2;
      m_at = end;
      return;
    }
    addFrets(end);
  }

  int digit(std::size_t at) const { return static_cast<int>(m_line[at] - U'0'); }

  bool isFretOfTwo(std::size_t at) const {
    return digit(at) > 0 && digit(at) * kTen + digit(at + 1) <= kHighestFret;
  }

  /// Two digits are one fret, or else each is; of three two are one, the first ones rather.
  void addFrets(std::size_t end) {
    while (m_at < end) {
      const bool isOfThree = end - m_at == 3 && isFretOfTwo(m_at);
      const bool isOfTwo = (end - m_at) % 2 == 0 && isFretOfTwo(m_at);
      addFret(isOfThree || isOfTwo ? 2 : 1);
    }
  }

  void addFret(std::size_t digits) {
    const std::size_t bracket = isAnyOf(before(), U"(<[") ? 1 : 0;
    const int fret = digits == 2 ? digit(m_at) * kTen + digit(m_at + 1) : digit(m_at);
    m_numbers.push_back({m_at - bracket, m_at + digits - 1, m_at, {m_string, fret}});
    m_at += digits;
  }

  void count(const char* what) { ++m_left[what]; }

  void readSign() {
    const char32_t c = m_line[m_at];
    const bool isSame = before() == c;
    if (c == U'x' || c == U'X') {
      m_numbers.push_back({m_at, m_at, m_at, {m_string, -1}});
      count("dead notes");
    } else if (isAnyOf(c, U"Pp") && isAnyOf(at(m_line, m_at + 1), U"Mm")) {
      count("palm muting");
      ++m_at;
    } else if (isAnyOf(c, U"hpHP")) {
      count("hammer-ons and pull-offs");
    } else if (isAnyOf(c, U"/\\sS")) {
      count("slides");
    } else if (isAnyOf(c, U"b^") && !isSame) {
      count("bends");
    } else if (isAnyOf(c, U"~vV") && !isSame) {
      count("vibrato");
    } else if (isAnyOf(c, U"tT")) {
      count(isSame || isAnyOf(at(m_line, m_at + 1), U"rR") ? "trills" : "taps");
    } else if (isAnyOf(c, U"<*[")) {
      count("harmonics");
    }
    ++m_at;
  }

  const Row& m_line;
  int m_string;
  std::vector<Number>& m_numbers;
  std::map<std::string, int>& m_left;
  std::size_t m_at = 0;
};

/// A digit without a bracket says where all are meant to be that are struck with it.
bool isSure(const Number& number) { return number.first == number.last; }

bool isOn(const Struck& struck, int string) {
  return std::ranges::any_of(struck.tones,
                             [string](const auto& tone) { return tone.string == string; });
}

void add(const Number& number, Struck& struck) {
  if (isSure(number) && struck.from < struck.to) struck.from = struck.to = number.column;
  struck.last = std::max(struck.last, number.last);
  struck.tones.push_back(number.tone);
}

}  // namespace

std::vector<Struck> struckOn(const std::array<Row, kStrings>& lines,
                             std::map<std::string, int>& left) {
  std::vector<Number> numbers;
  for (int string = 0; string < kStrings; ++string)
    FretReader(lines.at(static_cast<std::size_t>(kStrings - 1 - string)), string, numbers, left)
        .read();
  std::ranges::stable_sort(numbers, {}, &Number::first);
  std::vector<Struck> struck;
  for (const Number& number : numbers) {
    const bool isBeside = !struck.empty() && number.first <= struck.back().last &&
                          !isOn(struck.back(), number.tone.string);
    if (!isBeside)
      struck.push_back({number.first,
                        number.last,
                        number.first,
                        isSure(number) ? number.column : std::max(number.column, number.last),
                        {}});
    add(number, struck.back());
  }
  return struck;
}

}  // namespace korvel::exchange
