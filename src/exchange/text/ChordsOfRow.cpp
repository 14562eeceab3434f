// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/text/ChordsOfRow.h"

#include <algorithm>
#include <array>
#include <optional>

namespace korvel::exchange {

namespace {

using Word = std::u32string_view;

/// What a name may have behind its root, longer ones first.
constexpr std::array<Word, 27> kParts{
    U"maj", U"min", U"dim", U"aug", U"sus", U"add",    U"omit",   U"no",     U"alt",
    U"11",  U"13",  U"m",   U"M",   U"2",   U"4",      U"5",      U"6",      U"7",
    U"9",   U"b",   U"#",   U"+",   U"-",   U"\u00B0", U"\u00F8", U"\u0394", U"\u266D"};

bool isRoot(char32_t c) { return c >= U'A' && c <= U'H'; }

/// Columns of the root that a word begins with: 0 without one.
std::size_t columnsOfRoot(Word word) {
  if (word.empty() || !isRoot(word.front())) return 0;
  const char32_t sign = at(word, 1);
  return sign == U'#' || sign == U'b' || sign == U'\u266F' || sign == U'\u266D' ? 2 : 1;
}

bool isChord(Word word) {
  std::size_t i = columnsOfRoot(word);
  if (i == 0) return false;
  while (i < word.size()) {
    const Word rest = word.substr(i);
    if (rest.front() == U'/' && columnsOfRoot(rest.substr(1)) == rest.size() - 1)
      return rest.size() > 1;
    if (rest.front() == U'(' || rest.front() == U')' || rest.front() == U'/' ||
        rest.front() == U',' || rest.front() == U'\u266F') {
      ++i;
      continue;
    }
    const auto* part =
        std::ranges::find_if(kParts, [&](Word each) { return rest.starts_with(each); });
    if (part == kParts.end()) return false;
    i += part->size();
  }
  return true;
}

bool isNoChord(Word word) { return word == U"N.C." || word == U"NC" || word == U"N.C"; }

/// Numbers of bars, bar lines, "x2", "let ring---|" and the like.
bool isSign(Word word) {
  if (word == U"let" || word.find(U"--") != Word::npos) return true;
  return word.find_first_not_of(U"0123456789|-%/.:()xX*~_") == Word::npos;
}

struct Found {
  std::size_t column;
  Word word;
};

std::vector<Found> wordsOf(Word row) {
  std::vector<Found> words;
  for (std::size_t at = row.find_first_not_of(U' '); at < row.size();) {
    const std::size_t end = std::min(row.find(U' ', at), row.size());
    words.push_back({at, row.substr(at, end - at)});
    at = row.find_first_not_of(U' ', end);
  }
  return words;
}

/// Without the brackets around a whole name.
Word bare(Word word) {
  const bool isBracketed = word.size() > 2 && word.front() == U'(' && word.back() == U')';
  return isBracketed ? word.substr(1, word.size() - 2) : word;
}

}  // namespace

bool isRowOfChords(const Row& row) {
  bool hasName = false;
  for (const Found& found : wordsOf(row)) {
    const Word word = bare(found.word);
    const bool isName = isChord(word) || isNoChord(word);
    if (!isName && !isSign(found.word)) return false;
    hasName = hasName || isName;
  }
  return hasName;
}

std::vector<std::pair<std::size_t, std::string>> chordsOfRow(const Row& row) {
  std::vector<std::pair<std::size_t, std::string>> chords;
  for (const Found& found : wordsOf(row)) {
    const Word word = bare(found.word);
    if (isChord(word) || isNoChord(word))
      chords.emplace_back(found.column, isNoChord(word) ? "" : utf8(word));
  }
  return chords;
}

}  // namespace korvel::exchange
