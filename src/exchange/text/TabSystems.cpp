// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/text/TabSystems.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "music/Pitch.h"

namespace korvel::exchange {

namespace {

constexpr std::size_t kLines = kStrings;
constexpr std::size_t kFewestLines = 4;
constexpr std::size_t kMostLines = 12;
constexpr std::size_t kNarrowestWrapped = 30;
constexpr std::array<std::size_t, 4> kOtherLines{7, 5, 4, 8};

/// Lines that follow one another.
struct Block {
  struct Line {
    StringLine line;
    Row text;
    std::size_t row = 0;
    bool isString = true;  ///< Else it may only be broken off of one.
  };
  std::vector<Line> lines;
};

/// Each second line is the end of the one before it.
bool isWrapped(const Block& block) {
  if (block.lines.size() % (2 * kLines) != 0) return false;
  const std::size_t width = block.lines.front().text.size();
  for (std::size_t i = 0; i < block.lines.size(); i += 2) {
    const Block::Line& head = block.lines[i];
    const Block::Line& rest = block.lines[i + 1];
    const bool isWide = head.text.size() + 2 > width && head.text.size() < width + 2;
    if (!head.isString || !isWide || width < kNarrowestWrapped) return false;
    if (rest.text.size() >= head.text.size() || (rest.isString && rest.line.name)) return false;
    if (rest.text.front() == U' ') return false;
  }
  return true;
}

void unwrap(Block& block) {
  std::vector<Block::Line> joined;
  for (std::size_t i = 0; i < block.lines.size(); i += 2) {
    Block::Line line = block.lines[i];
    line.text += block.lines[i + 1].text;
    if (auto whole = stringLineOf(line.text)) line.line = std::move(*whole);
    joined.push_back(std::move(line));
  }
  block.lines = std::move(joined);
}

bool isNamed(const Block::Line& line) { return line.line.name.has_value(); }

/// Such as a line that is drawn below a heading, or a bracket over a triplet.
void dropOddOnes(Block& block) {
  auto& lines = block.lines;
  std::erase_if(lines, [](const auto& line) { return !line.isString; });
  if (lines.size() % kLines == 0) return;
  const auto named = static_cast<std::size_t>(std::ranges::count_if(lines, isNamed));
  if (named > 0 && named % kLines == 0) {
    std::erase_if(lines, [](const auto& line) { return !isNamed(line); });
    return;
  }
  if (named > 0 || lines.size() % kLines != 1) return;
  const std::size_t width = lines[lines.size() / 2].text.size();
  const auto isOdd = [width](const auto& line) { return line.text.size() != width; };
  if (isOdd(lines.front()) && !isOdd(lines.back()))
    lines.erase(lines.begin());
  else if (isOdd(lines.back()) && !isOdd(lines.front()))
    lines.pop_back();
}

/// Three basses of four strings are no guitars of six.
bool repeatsEvery(const Block& block, std::size_t lines) {
  if (block.lines.size() % lines != 0 || !std::ranges::all_of(block.lines, isNamed)) return false;
  for (std::size_t i = lines; i < block.lines.size(); ++i)
    if (block.lines[i].line.name->note != block.lines[i - lines].line.name->note) return false;
  return true;
}

class SystemFinder {
 public:
  explicit SystemFinder(std::span<const Row> rows) : m_rows(rows) {}

  TabSystems find() {
    for (std::size_t row = 0; row < m_rows.size(); ++row) look(row);
    close();
    resolveSpaced();
    return std::move(m_found);
  }

 private:
  void look(std::size_t row) {
    auto line = stringLineOf(m_rows[row]);
    if (line || (!m_block.lines.empty() && mayBeBrokenOff(m_rows[row]))) {
      const bool isString = line.has_value();
      m_block.lines.push_back({line ? std::move(*line) : StringLine(), m_rows[row], row, isString});
      return;
    }
    close();
    if (!isBlank(m_rows[row])) resolveSpaced();
  }

  /// Lines that stand alone are kept, as each line of a system may be followed by a blank one.
  void close() {
    if (m_block.lines.size() == 1) {
      const std::size_t row = m_block.lines.front().row;
      if (!m_spaced.lines.empty() && row != m_spaced.lines.back().row + 2) resolveSpaced();
      m_spaced.lines.push_back(std::move(m_block.lines.front()));
    } else if (!m_block.lines.empty()) {
      resolveSpaced();
      resolve(m_block);
    }
    m_block.lines.clear();
  }

  void resolveSpaced() {
    if (m_spaced.lines.size() >= kFewestLines) resolve(m_spaced);
    m_spaced.lines.clear();
  }

  void resolve(Block& block) {
    if (isWrapped(block)) unwrap(block);
    dropOddOnes(block);
    const std::size_t lines = block.lines.size();
    const bool isOfFour = lines == 2 * kLines && repeatsEvery(block, kFewestLines);
    if (lines % kLines == 0 && !isOfFour)
      addSystems(block);
    else
      addOther(lines);
  }

  void addSystems(Block& block) {
    for (std::size_t first = 0; first < block.lines.size(); first += kLines) {
      TabSystem system;
      system.first = block.lines[first].row;
      system.end = block.lines[first + kLines - 1].row + 1;
      for (std::size_t i = 0; i < kLines; ++i)
        system.lines.at(i) = std::move(block.lines[first + i].line);
      m_found.systems.push_back(std::move(system));
    }
  }

  void addOther(std::size_t lines) {
    if (lines < kFewestLines) return;
    const auto* of =
        std::ranges::find_if(kOtherLines, [&](auto each) { return lines % each == 0; });
    const std::size_t each =
        of == kOtherLines.end() ? std::min(lines, kMostLines) : std::size_t{*of};
    m_found.others[static_cast<int>(each)] +=
        static_cast<int>(std::max(lines / each, std::size_t{1}));
  }

  std::span<const Row> m_rows;
  Block m_block;
  Block m_spaced;
  TabSystems m_found;
};

int distance(int a, int b) {
  const int way = pitchClass(a - b);
  return std::min(way, kNotesPerOctave - way);
}

/// How far the names are from those of standard tuning.
int strangeness(const TabSystem& system, bool upsideDown) {
  int sum = 0;
  for (std::size_t i = 0; i < kLines; ++i) {
    const std::size_t string = upsideDown ? i : kLines - 1 - i;
    sum += distance(system.lines.at(i).name->note, kStandardPitches.at(string));
  }
  return sum;
}

int pitchOf(const StringName& name, int standard) {
  if (name.octave) return (*name.octave + 1) * kNotesPerOctave + name.note;
  const int up = pitchClass(name.note - standard);
  return standard + (up > kNotesPerOctave / 2 ? up - kNotesPerOctave : up);
}

}  // namespace

TabSystems systemsOf(std::span<const Row> rows) { return SystemFinder(rows).find(); }

bool isUpsideDown(const TabSystem& system) {
  if (!std::ranges::all_of(system.lines, [](const auto& line) { return line.name.has_value(); }))
    return false;
  const StringName& top = *system.lines.front().name;
  const StringName& bottom = *system.lines.back().name;
  if (top.octave && bottom.octave) return *top.octave < *bottom.octave;
  const int usual = strangeness(system, false);
  const int reversed = strangeness(system, true);
  return reversed < usual || (reversed == usual && bottom.isSmall && !top.isSmall);
}

std::optional<OpenPitches> openOf(const TabSystem& system) {
  if (!std::ranges::all_of(system.lines, [](const auto& line) { return line.name.has_value(); }))
    return std::nullopt;
  OpenPitches open{};
  const bool upsideDown = isUpsideDown(system);
  for (std::size_t string = kLines; string-- > 0;) {
    const std::size_t line = upsideDown ? string : kLines - 1 - string;
    open.at(string) = pitchOf(*system.lines.at(line).name, kStandardPitches.at(string));
    while (string + 1 < kLines && open.at(string) >= open.at(string + 1))
      open.at(string) -= kNotesPerOctave;
  }
  return open;
}

}  // namespace korvel::exchange
