// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/layout/BeatDrawing.h"

#include <algorithm>
#include <cmath>

#include "music/Neck.h"
#include "music/Ticks.h"
#include "tab/text/ChordText.h"
#include "tab/text/NoteGlyphs.h"

namespace korvel {
namespace {

constexpr int kColumnOfNumber = 1;
constexpr int kColumnOfTempo = 8;
constexpr int kColumnsOfFret = 2;
constexpr int kRowOfStems = 6;
constexpr int kRowOfTime = 7;
constexpr int kLastRowOfValue = 8;
constexpr int kRowOfTriplets = 9;
constexpr int kRowOfLower = 10;
constexpr int kHalfNote = 2;
constexpr double kMiddleOfStem = 1.5;
constexpr const char* kQuarterSign = "\u2669";

std::string timeText(const SongBars::Bar& bar) {
  return std::to_string(bar.beat) + '/' + std::to_string(bar.beattype);
}

}  // namespace

BeatDrawing::BeatDrawing(const SongBars& song, const BeatHeading& heading, int width)
    : m_song(song) {
  m_matrix.newPage(heading.title, heading.capo);
  drawTempo(heading);
  // The names of strings say where the first column is, which the lines begin in.
  QBTabMatrix measured;
  measured.openSystem(heading.strings);
  for (const BeatLine& line : linesOf(song, measured.m_xPos, width)) {
    if (!m_signs.isEmpty()) m_matrix.m_yPos += kRowsToNextSystem;
    drawLine(line, heading);
  }
  drawTones();
}

/// In a row of its own above the first system.
void BeatDrawing::drawTempo(const BeatHeading& heading) {
  if (m_song.bars().empty()) return;
  const SongBars::Bar& bar = m_song.bars().front();
  const TabSigns::Tempo tempo{kColumnOfTempo, m_matrix.m_yPos - 1,
                              static_cast<int>(std::lround(heading.tempo)),
                              isCompound(bar.beat, bar.beattype), heading.isSwung};
  m_signs.tempo = tempo;
  m_matrix.horText(tempo.x, tempo.row,
                   std::string(kQuarterSign) + (tempo.isDotted ? "." : "") + " = " +
                       std::to_string(tempo.beats) + (tempo.isSwung ? "  Swing" : ""));
  ++m_matrix.m_yPos;
}

void BeatDrawing::drawLine(const BeatLine& line, const BeatHeading& heading) {
  m_matrix.openSystem(heading.strings);
  m_signs.systems.emplace_back();
  if (line.parts.empty()) return;
  const BeatLine::Part& first = line.parts.front();
  const int number = m_song.bars()[static_cast<std::size_t>(first.bar)].number;
  if (first.begins && number > 0)
    m_matrix.horText(kColumnOfNumber, m_matrix.m_yPos - 1, std::to_string(number));
  m_matrix.stringLines(first.x - 1, 1);  // no gap behind the names
  for (const BeatLine::Part& part : line.parts) drawPart(part);
  const BeatLine::Part& last = line.parts.back();
  const int end = last.end + (last.ends ? 1 : 0);
  m_extents.push_back({0, static_cast<double>(first.x), static_cast<double>(last.end)});
  widenPlaces(end);
}

void BeatDrawing::drawPart(const BeatLine::Part& part) {
  const SongBars::Bar& bar = m_song.bars()[static_cast<std::size_t>(part.bar)];
  m_matrix.stringLines(part.x, part.end - part.x);
  if (part.time) drawTime(bar, *part.time);
  for (std::size_t i = 0; i < part.cells.size(); ++i) {
    const BeatLine::Cell& cell = part.cells[i];
    if (cell.isFirst) drawChord(bar.events[static_cast<std::size_t>(cell.sign.event)], cell.x);
    drawNote(part, i);
    m_placed.push_back({cell, static_cast<int>(m_signs.systems.size()) - 1});
  }
  drawLower(part);
  m_matrix.m_xPos = part.end - 1;
  if (part.ends) m_matrix.closeMeasure();
}

void BeatDrawing::drawTime(const SongBars::Bar& bar, int x) {
  m_matrix.horText(x, m_matrix.m_yPos + kRowOfTime, timeText(bar));
  system().times.push_back({x, columnsOfTime(bar), bar.beat, bar.beattype});
}

void BeatDrawing::drawChord(const SongBars::Event& event, int x) {
  m_places.push_back({event.chord, x, m_matrix.m_yPos, 0, event.frets.empty()});
  for (const SongBars::Fret& each : event.frets)
    m_matrix.horText(x, m_matrix.m_yPos + kStrings - 1 - each.string, fretText(each.fret));
  m_matrix.horText(x, m_matrix.m_yPos - 1, event.name);
}

/// A triplet's number stands below its middle one.
void BeatDrawing::drawNote(const BeatLine::Part& part, std::size_t cell) {
  const BarSign& sign = part.cells[cell].sign;
  const int x = part.cells[cell].x;
  const int column = x + 1;
  setMetric(m_matrix, column, m_matrix.m_yPos + kLastRowOfValue, sixteenthsOf(sign));
  if (sign.isRest) m_matrix.setString(column, m_matrix.m_yPos + kRowOfStems, "r");
  system().notes.push_back({x, part.bar, sign});
  if (!sign.triplet) return;
  const auto isSame = [&](const BeatLine::Cell& other) {
    return other.sign.triplet == sign.triplet;
  };
  const auto first = std::ranges::find_if(part.cells, isSame);
  const auto count = std::ranges::count_if(part.cells, isSame);
  if (part.cells.begin() + static_cast<std::ptrdiff_t>(cell) == first + (count - 1) / 2)
    m_matrix.setString(column, m_matrix.m_yPos + kRowOfTriplets, "3");
}

/// Where nothing is struck meanwhile, a sign stands by its time.
void BeatDrawing::drawLower(const BeatLine::Part& part) {
  const SongBars::Bar& bar = m_song.bars()[static_cast<std::size_t>(part.bar)];
  for (const BarSign& sign : bar.lowerSigns()) {
    const auto cell = std::ranges::find_if(part.cells, [&](const BeatLine::Cell& each) {
      return sign.from >= each.sign.from && sign.from < each.sign.from + each.sign.ticks;
    });
    if (cell == part.cells.end()) continue;
    const double share = static_cast<double>(sign.from - cell->sign.from) / cell->sign.ticks;
    const int x = cell->x + static_cast<int>(std::lround((cell->end - cell->x) * share));
    m_matrix.horText(x + 1, m_matrix.m_yPos + kRowOfLower,
                     std::string(sign.value <= kHalfNote ? "o" : "|") + (sign.isDotted ? "." : ""));
    system().lower.push_back({x, part.bar, sign});
  }
}

/// The chords of the latest system reach to the next one, or to the end.
void BeatDrawing::widenPlaces(int end) {
  int next = end;
  for (auto place = m_places.rbegin(); place != m_places.rend() && place->y == m_matrix.m_yPos;
       ++place) {
    place->columns = next - place->x;
    next = place->x;
  }
}

/// A tone that sounds on alone is tied to what writes that, one under others has a line.
void BeatDrawing::drawTones() {
  std::size_t first = 0;
  for (const SongBars::Ring& ring : m_song.rings()) {
    while (first < m_placed.size() && m_placed[first].cell.chord < ring.chord) ++first;
    if (ring.isUnderOthers) {
      drawRing(ring, first);
      continue;
    }
    for (std::size_t i = first + 1; i < m_placed.size() && m_placed[i].cell.from < ring.end; ++i)
      drawTie(m_placed[i - 1], m_placed[i], ring.string);
  }
}

void BeatDrawing::drawTie(const Placed& from, const Placed& to, int string) {
  const bool hasFret = !from.cell.sign.isTied;
  const double begin = from.cell.x + (hasFret ? kColumnsOfFret : kMiddleOfStem);
  const double end = to.cell.x + kMiddleOfStem;
  const auto at = [](int system) { return static_cast<std::size_t>(system); };
  if (from.system == to.system) {
    m_signs.systems[at(from.system)].ties.push_back({string, begin, end});
    return;
  }
  m_signs.systems[at(from.system)].ties.push_back({string, begin, m_extents[at(from.system)].to});
  m_signs.systems[at(to.system)].ties.push_back({string, m_extents[at(to.system)].from, end});
}

void BeatDrawing::drawRing(const SongBars::Ring& ring, std::size_t first) {
  TabSigns::System* current = nullptr;
  for (std::size_t i = first; i < m_placed.size() && m_placed[i].cell.from < ring.end; ++i) {
    const BeatLine::Cell& cell = m_placed[i].cell;
    const double share =
        std::min(1.0, static_cast<double>(ring.end - cell.from) / std::max(cell.sign.ticks, 1));
    const double end = cell.x + (cell.end - cell.x) * share;
    TabSigns::System& system = m_signs.systems[static_cast<std::size_t>(m_placed[i].system)];
    if (&system != current)
      system.rings.push_back(
          {ring.string, i == first ? cell.x + kColumnsOfFret : static_cast<double>(cell.x), end});
    system.rings.back().to = end;
    current = &system;
  }
}

}  // namespace korvel
