// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/layout/BeatLines.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <string>
#include <utility>

#include "music/Ticks.h"
#include "platform/text/Utf8.h"

namespace korvel {
namespace {

using Cell = BeatLine::Cell;
using Part = BeatLine::Part;

/// A fret of two digits, and a dash.
constexpr int kFewestColumns = 3;
constexpr int kColumnsOfQuarter = 6;
constexpr int kColumnsBeforeSigns = 1;
constexpr int kColumnsOfBarLine = 2;

/// As much again for four times the length.
int columnsForTicks(int ticks, bool compound) {
  const double quarters =
      static_cast<double>(ticks) / (compound ? kTicksOfBeat * 2 / 3 : kTicksOfBeat);
  return std::max(kFewestColumns,
                  static_cast<int>(std::lround(kColumnsOfQuarter * std::sqrt(quarters))));
}

int columnsOfCells(const Part& part) {
  int sum = 0;
  for (const Cell& cell : part.cells) sum += cell.columns;
  return sum;
}

/// The last sign before the next name gets what the name is wider than its signs.
void makeRoomForName(Part& part, std::size_t from, std::size_t to, const std::string& name) {
  int columns = static_cast<int>(platform::characterCount(name)) + 1;
  for (std::size_t i = from; i < to; ++i) columns -= part.cells[i].columns;
  if (columns > 0) part.cells[to - 1].columns += columns;
}

void makeRoomForNames(Part& part, const SongBars::Bar& bar) {
  const std::string* name = nullptr;
  std::size_t from = 0;
  for (std::size_t i = 0; i < part.cells.size(); ++i) {
    const auto& event = bar.events[static_cast<std::size_t>(part.cells[i].sign.event)];
    if (!part.cells[i].isFirst || event.name.empty()) continue;
    if (name) makeRoomForName(part, from, i, *name);
    name = &event.name;
    from = i;
  }
  if (name) makeRoomForName(part, from, part.cells.size(), *name);
}

Part partOf(const SongBars::Bar& bar, int index) {
  Part part{index, true, true};
  int before = -1;
  for (const BarSign& sign : bar.signs()) {
    const auto& event = bar.events[static_cast<std::size_t>(sign.event)];
    const int from = event.from + sign.from - (bar.first + event.from - bar.events.front().from);
    part.cells.push_back({sign, event.chord, from,
                          columnsForTicks(sign.ticks, isCompound(bar.beat, bar.beattype)),
                          sign.event != before});
    before = sign.event;
  }
  makeRoomForNames(part, bar);
  return part;
}

class LineBreaker {
 public:
  LineBreaker(const SongBars& song, int left, int width)
      : m_song(song), m_left(left), m_room(width - left), m_lines(1) {}

  std::vector<BeatLine> lines() {
    for (std::size_t i = 0; i < m_song.bars().size(); ++i)
      add(partOf(m_song.bars()[i], static_cast<int>(i)));
    for (BeatLine& line : m_lines) place(line, &line != &m_lines.back());
    return std::move(m_lines);
  }

 private:
  int timeColumns(const Part& part) const {
    const auto& bar = m_song.bars()[static_cast<std::size_t>(part.bar)];
    return part.begins && bar.showsTime ? columnsOfTime(bar) : 0;
  }

  /// What is not stretched.
  int fixedColumns(const Part& part) const {
    return kColumnsBeforeSigns + timeColumns(part) + (part.ends ? kColumnsOfBarLine : 0);
  }

  int columns(const Part& part) const { return fixedColumns(part) + columnsOfCells(part); }

  void add(Part part) {
    if (m_used > 0 && m_used + columns(part) > m_room) newLine();
    while (columns(part) > m_room) {
      const std::size_t fitting = cellsThatFit(part);
      if (fitting == part.cells.size()) break;
      push(takeHead(part, fitting));
      newLine();
    }
    push(std::move(part));
  }

  /// Signs of one chord stay together, and there is always one chord.
  std::size_t cellsThatFit(const Part& part) const {
    int used = fixedColumns(part);
    std::size_t fitting = 0;
    for (std::size_t i = 0; i < part.cells.size(); ++i) {
      if (part.cells[i].isFirst && i > 0) {
        if (used > m_room) return fitting > 0 ? fitting : i;
        fitting = i;
      }
      used += part.cells[i].columns;
    }
    return fitting > 0 ? fitting : part.cells.size();
  }

  static Part takeHead(Part& part, std::size_t cells) {
    Part head{part.bar, part.begins, false};
    const auto end = part.cells.begin() + static_cast<std::ptrdiff_t>(cells);
    head.cells.assign(std::make_move_iterator(part.cells.begin()), std::make_move_iterator(end));
    part.cells.erase(part.cells.begin(), end);
    part.begins = false;
    return head;
  }

  void newLine() {
    m_lines.emplace_back();
    m_used = 0;
  }

  void push(Part part) {
    m_used += columns(part);
    m_lines.back().parts.push_back(std::move(part));
  }

  void place(BeatLine& line, bool isStretched) const {
    int fixed = 0;
    int natural = 0;
    for (const Part& part : line.parts) {
      fixed += fixedColumns(part);
      natural += columnsOfCells(part);
    }
    const double stretch = isStretched && natural > 0
                               ? std::max(1.0, static_cast<double>(m_room - fixed) / natural)
                               : 1.0;
    int before = 0;
    int at = m_left;
    const auto column = [&] { return at + static_cast<int>(std::lround(before * stretch)); };
    for (Part& part : line.parts) {
      part.x = column();
      at += kColumnsBeforeSigns;
      if (timeColumns(part) > 0) part.time = column();
      at += timeColumns(part);
      for (Cell& cell : part.cells) {
        cell.x = column();
        before += cell.columns;
        cell.end = column();
      }
      if (part.ends) at += kColumnsOfBarLine;
      part.end = column() - (part.ends ? 1 : 0);
    }
  }

  const SongBars& m_song;
  int m_left;
  int m_room;
  int m_used = 0;
  std::vector<BeatLine> m_lines;
};

}  // namespace

int columnsOfTime(const SongBars::Bar& bar) {
  return static_cast<int>(std::to_string(bar.beat).size() + std::to_string(bar.beattype).size()) +
         2;
}

std::vector<BeatLine> linesOf(const SongBars& song, int left, int width) {
  return LineBreaker(song, left, width).lines();
}

}  // namespace korvel
