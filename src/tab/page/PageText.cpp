// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/page/PageText.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

namespace korvel {
namespace {

constexpr std::size_t kColumns = 80;
constexpr int kFewestFrets = 4;
constexpr std::size_t kWidthOfBox = 2 * kStrings - 1;
constexpr std::size_t kBetweenGrips = 4;

bool isContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

/// Characters, as far as each takes one column.
std::size_t widthOf(const std::string& text) {
  return static_cast<std::size_t>(
      std::ranges::count_if(text, [](char byte) { return !isContinuation(byte); }));
}

std::string padded(std::string text, std::size_t width) {
  const std::size_t has = widthOf(text);
  if (has < width) text.append(width - has, ' ');
  return text;
}

std::string withoutBlanksBehind(std::string text) {
  text.erase(text.find_last_not_of(' ') + 1);
  return text;
}

std::string headText(const SongPage& page) {
  std::string text = page.title + '\n';
  if (!page.artist.empty()) text += page.artist + '\n';
  std::string facts;
  const auto add = [&facts](const std::string& fact) {
    if (!facts.empty()) facts += "   ";
    facts += fact;
  };
  if (!page.soundingKey.empty()) add("Key: " + page.soundingKey + (page.isGuessedKey ? "?" : ""));
  if (page.capo > 0)
    add("Capo: " + std::to_string(page.capo) +
        (page.key.empty() ? "" : " (shapes of " + page.key + ")"));
  if (page.tempo > 0) add("Tempo: " + std::to_string(std::lround(page.tempo)));
  if (!page.metre.empty()) add("Metre: " + page.metre);
  if (page.hasDoubts()) add("?: another name is as probable");
  return text + (facts.empty() ? "" : facts + '\n');
}

/// A grip as lines of equal width.
std::vector<std::string> boxOf(const PageGrip& grip) {
  std::string name = grip.name;
  if (grip.shape != grip.name) name += " " + grip.shape;
  if (grip.sounding != grip.shape) name += " (" + grip.sounding + ")";
  std::vector<std::string> lines{name};
  std::string marks;
  for (const int fret : grip.frets) marks += fret == kNotPlayed ? "x " : fret == 0 ? "o " : "  ";
  lines.push_back(marks);
  const auto edge = [&lines](const char* left, const char* middle, const char* right) {
    std::string line = left;
    for (int i = 0; i + 1 < kStrings; ++i)
      line += std::string("\u2500") + (i + 2 < kStrings ? middle : right);
    lines.push_back(line);
  };
  edge("\u250C", "\u252C", "\u2510");
  const int highest = std::ranges::max(grip.frets);
  const int last = std::max(grip.baseFret + kFewestFrets - 1, highest);
  for (int fret = grip.baseFret; fret <= last; ++fret) {
    std::string line;
    for (std::size_t s = 0; s < grip.frets.size(); ++s) {
      const int finger = grip.fingers[s];
      line += grip.frets[s] != fret ? "\u2502" : finger > 0 ? std::to_string(finger) : "\u25CF";
      line += ' ';
    }
    if (fret == grip.baseFret && fret > 1) line += std::to_string(fret);
    lines.push_back(line);
    if (fret < last) edge("\u251C", "\u253C", "\u2524");
  }
  edge("\u2514", "\u2534", "\u2518");
  return lines;
}

std::string besideEachOther(std::span<const std::vector<std::string>> boxes) {
  std::size_t height = 0;
  for (const auto& box : boxes) height = std::max(height, box.size());
  std::string text;
  for (std::size_t row = 0; row < height; ++row) {
    std::string line;
    for (const auto& box : boxes) {
      std::size_t width = kWidthOfBox;
      for (const std::string& each : box) width = std::max(width, widthOf(each));
      line += padded(row < box.size() ? box[row] : "", width + kBetweenGrips);
    }
    text += withoutBlanksBehind(line) + '\n';
  }
  return text;
}

std::string gripText(const SongPage& page) {
  constexpr std::size_t kOfLine = kColumns / (kWidthOfBox + kBetweenGrips);
  std::vector<std::vector<std::string>> boxes;
  for (const PageGrip& grip : page.grips) boxes.push_back(boxOf(grip));
  std::string text;
  for (std::size_t from = 0; from < boxes.size(); from += kOfLine)
    text += '\n' +
            besideEachOther(std::span(boxes).subspan(from, std::min(kOfLine, boxes.size() - from)));
  return text;
}

std::string chordsOfBar(const PageBar& bar) {
  const std::string time =
      bar.showsTime ? std::to_string(bar.beat) + '/' + std::to_string(bar.beattype) + ' ' : "";
  return time + bar.chordText();
}

/// The bars of one line with the words of each time below them.
class LineOfBars {
 public:
  LineOfBars(std::span<const PageBar> bars, int times) : m_bars(bars), m_times(times) {
    for (const PageBar& bar : bars) {
      std::size_t width = widthOf(chordsOfBar(bar));
      for (int time = 0; time < times; ++time)
        width = std::max(width, widthOf(bar.wordText(static_cast<std::size_t>(time))));
      m_widths.push_back(width);
    }
  }

  std::string chords(const char* open, const std::string& close) const {
    std::string line = open;
    for (std::size_t i = 0; i < m_bars.size(); ++i)
      line +=
          ' ' + padded(chordsOfBar(m_bars[i]), m_widths[i]) + (i + 1 < m_bars.size() ? " |" : "");
    return line + close;
  }

  /// Words begin where the chords of their bar do.
  std::vector<std::string> words() const {
    std::vector<std::string> lines;
    for (int time = 0; time < m_times; ++time) {
      std::string line(2, ' ');
      for (std::size_t i = 0; i < m_bars.size(); ++i)
        line +=
            ' ' + padded(m_bars[i].wordText(static_cast<std::size_t>(time)), m_widths[i]) + "  ";
      line = withoutBlanksBehind(line);
      if (!line.empty()) lines.push_back(line);
    }
    return lines;
  }

 private:
  std::span<const PageBar> m_bars;
  int m_times;
  std::vector<std::size_t> m_widths;
};

std::string timesText(const PageSection& section) {
  return section.times > 1 ? "  " + std::to_string(section.times) + "x" : "";
}

std::string sectionText(const PageSection& section) {
  constexpr std::size_t kMargin = 4;
  std::string letter = padded(section.letter, kMargin);
  if (!section.showsBars()) return withoutBlanksBehind(section.letter + timesText(section)) + '\n';
  const std::span<const PageBar> bars = section.bars;
  const bool isRepeated = section.times > 1;
  std::string text;
  for (std::size_t from = 0; from < bars.size(); from += SongPage::kBarsOfLine) {
    const std::size_t count = std::min(SongPage::kBarsOfLine, bars.size() - from);
    const LineOfBars line(bars.subspan(from, count), section.times);
    const bool isLast = from + count == bars.size();
    const char* open = isRepeated && from == 0 ? "|:" : "| ";
    const std::string close = isRepeated && isLast ? " :|" + timesText(section) : " |";
    text += letter + line.chords(open, close) + '\n';
    letter.assign(letter.size(), ' ');
    for (const std::string& words : line.words()) text += letter + words + '\n';
  }
  return text;
}

}  // namespace

std::string pageText(const SongPage& page) {
  std::string text = headText(page) + gripText(page);
  for (const PageSection& section : page.sections) text += '\n' + sectionText(section);
  return text;
}

}  // namespace korvel
