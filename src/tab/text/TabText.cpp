// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/text/TabText.h"

#include <algorithm>
#include <vector>

#include "platform/text/Utf8.h"

namespace korvel {
namespace {

/// Before the first chord of a system: its names of strings.
constexpr int kLabelColumns = 8;

struct Columns {
  int first = 0;
  int end = 0;
};

Columns columnsOf(const TabLayout& layout, const TabLayout::System& system, int first, int last) {
  Columns columns;
  for (auto place = layout.begin(system); place != layout.end(system); ++place) {
    if (place->chord < first || place->chord > last) continue;
    if (columns.end == 0) columns.first = place->x;
    columns.end = place->x + place->columns;
  }
  return columns;
}

void appendCells(std::string& text, const std::vector<std::string>& cells, int first, int end) {
  const int stop = std::min(end, static_cast<int>(cells.size()));
  for (int i = first; i < stop; ++i) text += cells[static_cast<std::size_t>(i)];
}

void appendRow(std::string& text, const std::string& row, const Columns& columns) {
  const auto cells = platform::characters(row);
  std::string part;
  appendCells(part, cells, 0, kLabelColumns);
  part.resize(std::max(part.size(), static_cast<std::size_t>(kLabelColumns)), ' ');
  appendCells(part, cells, columns.first, columns.end);
  part.erase(part.find_last_not_of(' ') + 1);
  text += part + '\n';
}

}  // namespace

std::string textOf(const TabLayout& layout) {
  std::string text;
  for (std::size_t row = 0; row < layout.rows().size(); ++row)
    if (!layout.isRoom(static_cast<int>(row))) text += layout.rows()[row] + '\n';
  return text;
}

std::string textOfChords(const TabLayout& layout, int first, int last) {
  std::string text;
  for (const TabLayout::System& system : layout.systems()) {
    const Columns columns = columnsOf(layout, system, first, last);
    if (columns.end == 0) continue;
    if (!text.empty()) text += '\n';
    for (int row = system.first; row < system.end; ++row)
      appendRow(text, layout.rows()[static_cast<std::size_t>(row)], columns);
  }
  return text;
}

}  // namespace korvel
