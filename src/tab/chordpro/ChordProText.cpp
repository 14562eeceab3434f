// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/chordpro/ChordProText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string_view>
#include <utility>

#include "music/Ticks.h"
#include "tab/chordpro/ReadNames.h"

namespace korvel {
namespace {

constexpr std::string_view kNoChord = "N.C.";

std::string numberText(double value) {
  std::array<char, 32> digits{};
  constexpr int kPlaces = 3;
  const double rounded = std::round(value * 1000) / 1000;
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), rounded,
                                 std::chars_format::fixed, kPlaces);
  std::string text(digits.data(), end.ptr);
  text.erase(text.find_last_not_of('0') + 1);
  if (text.back() == '.') text.pop_back();
  return text;
}

std::string directive(std::string_view name, const std::string& value) {
  return value.empty() ? "" : "{" + std::string(name) + ": " + value + "}\n";
}

/// Braces would end a directive, and brackets begin a chord.
std::string plainWords(std::string words) {
  constexpr std::array kSigns{std::pair{'[', '('}, std::pair{']', ')'}, std::pair{'{', '('},
                              std::pair{'}', ')'}};
  for (const auto& [sign, other] : kSigns) std::ranges::replace(words, sign, other);
  return words;
}

std::string headOfPage(const SongPage& page) {
  std::string text = directive("title", plainWords(page.title));
  text += directive("artist", plainWords(page.artist));
  text += directive("key", page.isGuessedKey ? "" : page.key);
  if (page.capo > 0) text += directive("capo", std::to_string(page.capo));
  if (page.tempo > 0) text += directive("tempo", std::to_string(std::lround(page.tempo)));
  return text + directive("time", page.metre);
}

std::string defined(const PageGrip& grip, bool leftHanded) {
  ChordShape frets = grip.frets;
  ChordShape fingers = grip.fingers;
  if (leftHanded) {  // Files count strings as a right hand sees them.
    std::ranges::reverse(frets);
    std::ranges::reverse(fingers);
  }
  std::string text = grip.name + " base-fret " + std::to_string(grip.baseFret) + " frets";
  for (const int fret : frets)
    text +=
        fret == kNotPlayed ? " x" : ' ' + std::to_string(fret > 0 ? fret - grip.baseFret + 1 : 0);
  if (std::ranges::any_of(fingers, [](int finger) { return finger > 0; })) {
    text += " fingers";
    for (const int finger : fingers) text += ' ' + std::to_string(finger);
  }
  return directive("define", text);
}

std::string nameIn(const PageChord& chord) {
  return chord.name.empty() ? std::string(kNoChord) : chord.name;
}

/// A time signature that is another than the one told before, on a line of its own.
void tellMetre(const PageBar& bar, std::string& told, std::string& text) {
  const std::string metre = std::to_string(bar.beat) + '/' + std::to_string(bar.beattype);
  if (bar.beattype == 0 || metre == told) return;
  told = metre;
  text.erase(text.find_last_not_of(' ') + 1);
  if (!text.ends_with('\n')) text += '\n';
  text += directive("time", metre);
}

// ---- sections with words

/// With the hyphen of a syllable that others of its word follow.
bool isInWord(const std::string& words) {
  return words.size() > 1 && words.ends_with('-') && isLetterOfWord(words[words.size() - 2]);
}

/// Such a hyphen is none in a file, where the chord itself stands inside of the word.
void joinSyllables(std::string& text) {
  constexpr std::string_view kHyphen = "-[";
  for (auto at = text.find(kHyphen); at != std::string::npos; at = text.find(kHyphen, at))
    text.erase(at, 1);
}

/// A bar as chords in front of the words that are sung from them on.
std::string sungBar(const PageBar& bar, std::size_t time) {
  std::string text;
  std::size_t next = 0;
  const auto& words = bar.words.at(time);
  const auto addWords = [&](double until) {
    for (; next < words.size() && words[next].beat < until; ++next)
      text += plainWords(words[next].text) + (isInWord(words[next].text) ? "" : " ");
  };
  for (const PageChord& chord : bar.chords) {
    addWords(chord.beat);
    text += '[' + nameIn(chord) + ']';
  }
  addWords(bar.beats + 1);
  if (text.ends_with(']')) text += ' ';
  return text;
}

/// How long the chords of a section last, where it is not a bar for each.
std::string lengthsIn(const PageSection& section) {
  std::string lengths;
  bool isPlain = true;
  for (const PageBar& bar : section.bars) {
    isPlain = isPlain && bar.chords.size() == 1 && bar.beats == section.bars.front().beats &&
              bar.number != 0;
    for (const PageChord& chord : bar.chords)
      lengths += (lengths.empty() ? "" : " ") + numberText(chord.beats);
  }
  return isPlain ? "" : lengths;
}

std::string sungSection(const PageSection& section, bool isInBars, std::string& metre) {
  std::string text;
  for (int time = 0; time < section.times; ++time) {
    text += '\n' + (section.letter.empty() ? "{start_of_verse}\n"
                                           : directive("start_of_verse", section.letter));
    if (isInBars) text += directive("x_korvel_beats", lengthsIn(section));
    for (std::size_t i = 0; i < section.bars.size(); ++i) {
      tellMetre(section.bars[i], metre, text);
      text += sungBar(section.bars[i], static_cast<std::size_t>(time));
      const bool isLast = i + 1 == section.bars.size() || (i + 1) % SongPage::kBarsOfLine == 0;
      if (!isLast) continue;
      text.erase(text.find_last_not_of(' ') + 1);
      text += '\n';
    }
    text += "{end_of_verse}\n";
  }
  joinSyllables(text);
  return text;
}

// ---- sections without

/// How many cells of a grid a beat has, so that each chord begins with one.
int cellsOfBeat(const PageSection& section) {
  for (const int cells : {1, 2, 3, 4, 6}) {
    const auto isWhole = [cells](double beats) {
      return std::abs(beats * cells - std::round(beats * cells)) < 1e-6;
    };
    const bool fits = std::ranges::all_of(section.bars, [&](const PageBar& bar) {
      return isWhole(bar.beats) && std::ranges::all_of(bar.chords, [&](const PageChord& chord) {
               return isWhole(chord.beat);
             });
    });
    if (fits) return cells;
  }
  return 12;
}

std::string cellsOf(const PageBar& bar, int ofBeat) {
  // Nothing sounds before a pick-up.
  const double whole = static_cast<double>(ticksOfBar(bar.beat, bar.beattype)) / kTicksOfBeat;
  const double before = bar.number == 0 ? std::max(0.0, whole - bar.beats) : 0;
  const auto at = [&](double beat) {
    return static_cast<std::size_t>(std::max(0L, std::lround((before + beat) * ofBeat)));
  };
  std::vector<std::string> cells(std::max<std::size_t>(1, at(bar.beats)), ".");
  for (const PageChord& chord : bar.chords) cells.at(at(chord.beat)) = nameIn(chord);
  std::string text;
  for (const std::string& cell : cells) text += ' ' + cell;
  return text;
}

std::string gridSection(const PageSection& section, std::string& metre) {
  const int ofBeat = cellsOfBeat(section);
  const bool isRepeated = section.times > 1;
  std::string text = "\n{start_of_grid";
  if (!section.letter.empty()) text += ": label=\"" + section.letter + '"';
  text += "}\n";
  if (ofBeat > 1) text += directive("x_korvel_cells", std::to_string(ofBeat));
  for (std::size_t i = 0; i < section.bars.size(); ++i) {
    const bool isLast = i + 1 == section.bars.size();
    const bool endsLine = isLast || (i + 1) % SongPage::kBarsOfLine == 0;
    tellMetre(section.bars[i], metre, text);
    if (text.ends_with('\n')) text += isRepeated && i == 0 ? "|:" : "|";
    text += cellsOf(section.bars[i], ofBeat);
    text += isLast && isRepeated ? " :|" : " |";
    if (isLast && isRepeated) text += " x" + std::to_string(section.times);
    if (endsLine) text += '\n';
  }
  return text + "{end_of_grid}\n";
}

/// Without bars there is no grid: chords alone, a line for each four.
std::string changesOf(const PageSection& section) {
  std::string text = "\n";
  for (int time = 0; time < section.times; ++time) {
    for (std::size_t i = 0; i < section.bars.size(); ++i) {
      for (const PageChord& chord : section.bars[i].chords) text += '[' + nameIn(chord) + ']';
      const bool isLast = i + 1 == section.bars.size() || (i + 1) % SongPage::kBarsOfLine == 0;
      text += isLast ? "\n" : " ";
    }
  }
  return text;
}

}  // namespace

std::string chordProOf(const SongPage& page) {
  std::string text = headOfPage(page);
  if (!page.grips.empty()) text += '\n';
  for (const PageGrip& grip : page.grips) text += defined(grip, page.leftHanded);
  std::string metre = page.metre;
  for (const PageSection& section : page.sections)
    text += section.hasWords() ? sungSection(section, page.isInBars, metre)
            : page.isInBars    ? gridSection(section, metre)
                               : changesOf(section);
  return text;
}

}  // namespace korvel
