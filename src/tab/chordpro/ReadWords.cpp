// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/chordpro/ReadWords.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <sstream>

namespace korvel {

std::vector<std::string> wordsIn(std::string_view text) {
  std::istringstream stream{std::string(text)};
  std::vector<std::string> words;
  for (std::string word; stream >> word;) words.push_back(word);
  return words;
}

std::optional<double> numberIn(std::string_view text) {
  double number = 0;
  const auto [behind, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || !std::isfinite(number)) return std::nullopt;
  return number;
}

std::optional<int> wholeIn(std::string_view text, int most) {
  const auto number = numberIn(text);
  if (!number || !(*number >= 0)) return std::nullopt;
  return static_cast<int>(std::min<double>(*number, most));
}

}  // namespace korvel
