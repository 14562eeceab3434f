// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/layout/TabPages.h"

#include <algorithm>

namespace korvel {

int rowsOfLargestSystem(const TabLayout& layout) {
  int rows = layout.systems().empty() ? 1 : layout.systems().front().end;
  for (const TabLayout::System& system : layout.systems())
    rows = std::max(rows, system.end - system.first + layout.room());
  return rows;
}

std::vector<TabPage> pagesOf(const TabLayout& layout, int rowsOfPage) {
  const int rows = static_cast<int>(layout.rows().size());
  if (layout.systems().empty()) {
    std::vector<TabPage> pages;
    for (int row = 0; row < rows; row += rowsOfPage)
      pages.push_back({row, std::min(row + rowsOfPage, rows)});
    return pages;
  }
  // The heading stays with the first system.
  std::vector<TabPage> pages{{0, layout.systems().front().end}};
  for (std::size_t i = 1; i < layout.systems().size(); ++i) {
    const TabLayout::System& system = layout.systems()[i];
    if (system.end - pages.back().first > rowsOfPage)
      pages.push_back({system.first - layout.room(), system.end});
    else
      pages.back().end = system.end;
  }
  return pages;
}

}  // namespace korvel
