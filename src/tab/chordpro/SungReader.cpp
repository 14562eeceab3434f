// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/chordpro/SungReader.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "music/Ticks.h"
#include "tab/chordpro/ReadBars.h"
#include "tab/chordpro/ReadNames.h"
#include "tab/chordpro/ReadWords.h"

namespace korvel {
namespace {

/// What stands before the next bracket; with a hyphen where that is inside of a word.
std::string wordsOfPart(std::string_view text) {
  const auto open = text.find('[');
  std::string words(text.substr(0, open));
  if (open == std::string_view::npos || words.empty()) return words;
  const auto behind = text.find(']', open);
  const bool goesOn = behind != std::string_view::npos && behind + 1 < text.size() &&
                      isLetterOfWord(text[behind + 1]);
  if (goesOn && isLetterOfWord(words.back())) words += '-';
  return words;
}

}  // namespace

void SungReader::line(std::string_view text) {
  m_bars.addWords(wordsOfPart(text));
  while (!text.empty()) {
    const auto open = text.find('[');
    const auto close = open == std::string_view::npos ? open : text.find(']', open);
    if (close == std::string_view::npos) return;
    addChord(text.substr(open + 1, close - open - 1));
    text.remove_prefix(close + 1);
    m_bars.addWords(wordsOfPart(text));
  }
}

/// What stands in brackets: an annotation is none.
void SungReader::addChord(std::string_view name) {
  if (name.starts_with('*') || m_bars.isTooLong()) return;
  const auto chord = m_names.chordOf(name);
  if (!chord) return;
  if (m_lengths.empty()) return m_bars.addWhole(*chord);
  const int ticks = m_lengths.back();
  m_lengths.pop_back();
  m_bars.addBeside(*chord, ticks);
}

void SungReader::setLengths(std::string_view beats) {
  m_lengths.clear();
  for (const std::string& word : wordsIn(beats)) {
    const double length = std::clamp(numberIn(word).value_or(0), 0.0, 1000.0);
    m_lengths.push_back(std::max(1, static_cast<int>(std::lround(length * kTicksOfBeat))));
  }
  std::ranges::reverse(m_lengths);
}

}  // namespace korvel
