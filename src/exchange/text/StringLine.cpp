// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/text/StringLine.h"

#include <algorithm>
#include <array>

#include "music/Pitch.h"

namespace korvel::exchange {

namespace {

constexpr std::array kNotesOfLetters{9, 11, 0, 2, 4, 5, 7, 11};  // A to G, and the German H
constexpr std::u32string_view kOnStrings = U"-|0123456789hpbrxXsStTvV~/\\^()<>[]{}*:.=oOPMHm,'";
constexpr int kFewestDashes = 2;
constexpr std::size_t kLettersOfWord = 4;

bool isLetter(char32_t c) { return (c >= U'a' && c <= U'z') || (c >= U'A' && c <= U'Z'); }

bool isOneOf(char32_t c, std::u32string_view set) {
  return set.find(c) != std::u32string_view::npos;
}

/// "0---" or "0 - 2 |", but no shape of a chord, such as "0-2-2-1-0-0".
bool beginsWithFret(std::u32string_view text) {
  const bool isMuted = isOneOf(at(text, 0), U"xX");
  const std::size_t fret = isMuted ? 1 : text.find_first_not_of(U"0123456789");
  const std::size_t next = std::min(text.find_first_not_of(U' ', fret), text.size());
  const bool isDrawnOn =
      text.find(U"--") != std::u32string_view::npos || text.find(U'|') != std::u32string_view::npos;
  return fret > 0 && isOneOf(at(text, next), U"-|") && isDrawnOn;
}

/// A name is followed by the string, which may stand a few blanks further and begin with a fret
/// there.
bool isFollowedByString(std::u32string_view row, std::size_t column) {
  const std::size_t next = row.find_first_not_of(U" :)]", column);
  if (next == std::u32string_view::npos) return false;
  return isOneOf(row[next], U"|-") || (next > column && beginsWithFret(row.substr(next)));
}

/// The dashes and bars of "PM----|" and of words with a hyphen are no string.
bool hasWord(std::u32string_view body) {
  std::size_t letters = 0;
  for (const char32_t c : body) {
    letters = isLetter(c) && !isOneOf(c, U"xXhpPHMsS") ? letters + 1 : 0;
    if (letters >= kLettersOfWord) return true;
  }
  return false;
}

bool isDrawn(std::u32string_view body) {
  const auto dashes = std::ranges::count(body, U'-');
  const auto drawn =
      std::ranges::count_if(body, [](char32_t c) { return c == U'-' || c == U'|' || isDigit(c); });
  const auto blank = std::ranges::count(body, U' ');
  return dashes >= kFewestDashes && 2 * drawn >= std::ssize(body) - blank && !hasWord(body);
}

/// Column behind words and a name that stand before the first bar line; where the row begins for a
/// row without. None where only other words stand there.
std::optional<std::size_t> beginningOf(const Row& row, std::optional<StringName>& name) {
  std::size_t from = row.find_first_not_of(U' ');
  if (from == Row::npos) return std::nullopt;
  const std::size_t outer = row[from] == U'|' ? row.find_first_not_of(U"| ", from) : from;
  if (const auto found = outer == Row::npos ? std::nullopt : nameAt(row, outer)) {
    name = found->name;
    return found->end;
  }
  if (isDigit(row[from]) && at(row, from + 1) == U'|') return from + 1;
  if (!isLetter(row[from])) return from;
  const std::size_t bar = row.find(U'|');
  if (bar == Row::npos || row.find(U'-') < bar) return std::nullopt;
  const std::size_t word = row.rfind(U' ', bar);
  const auto last = word == Row::npos ? std::nullopt : nameAt(row, word + 1);
  if (!last) return std::nullopt;
  name = last->name;
  return last->end;
}

/// What stands behind the last bar line, or behind the last dash and what is written on to it.
std::size_t endOfBody(std::u32string_view body) {
  const std::size_t bar = body.rfind(U'|');
  const std::size_t behind = bar == std::u32string_view::npos ? 0 : bar + 1;
  const std::u32string_view rest = body.substr(behind);
  const bool goesOn = rest.find(U"--") != std::u32string_view::npos || rest.starts_with(U'-');
  if (behind > 0 && !goesOn) return behind;
  std::size_t end = body.find_last_of(U'-');
  if (end == std::u32string_view::npos) return body.size();
  while (++end < body.size() && isOneOf(body[end], kOnStrings)) {
  }
  return end;
}

}  // namespace

std::optional<FoundName> nameAt(std::u32string_view row, std::size_t column) {
  const char32_t c = at(row, column);
  const bool isSmall = c >= U'a' && c <= U'h';
  if (!isSmall && (c < U'A' || c > U'H')) return std::nullopt;
  StringName name{kNotesOfLetters.at(c - (isSmall ? U'a' : U'A')), std::nullopt, isSmall};
  std::size_t end = column + 1;
  const char32_t sign = at(row, end);
  const bool isSharp = sign == U'#' || sign == U'\u266F';
  if (isSharp || sign == U'b' || sign == U'\u266D') {
    name.note = pitchClass(name.note + (isSharp ? 1 : -1));
    ++end;
  }
  if (isDigit(at(row, end)) && isOneOf(at(row, end + 1), U"|: )")) {
    name.octave = static_cast<int>(row[end] - U'0');
    ++end;
  }
  if (!isFollowedByString(row, end)) return std::nullopt;
  return FoundName{name, end};
}

std::optional<StringLine> stringLineOf(const Row& row) {
  StringLine line;
  const auto beginning = beginningOf(row, line.name);
  if (!beginning) return std::nullopt;
  line.column = row.find_first_not_of(U' ', *beginning);
  if (line.name && isOneOf(at(row, line.column), U":)]")) ++line.column;
  line.column = row.find_first_not_of(U"| ", line.column);
  if (line.column == Row::npos) return std::nullopt;
  line.body = row.substr(line.column);
  const std::size_t end = endOfBody(line.body);
  line.remark = line.body.substr(end);
  line.body.erase(end);
  line.isBarred = line.body.find(U'|') != Row::npos;
  if (!isDrawn(line.body)) return std::nullopt;
  return line;
}

bool mayBeBrokenOff(const Row& row) {
  return !row.empty() && row.find_first_not_of(kOnStrings) == Row::npos;
}

}  // namespace korvel::exchange
