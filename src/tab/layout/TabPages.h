// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "tab/layout/TabLayout.h"

namespace korvel {

/// The rows [first, end) of a tablature that go on one page.
struct TabPage {
  int first;
  int end;
};

/// Rows of the largest system, the first one with the heading above it: what a page has to hold.
int rowsOfLargestSystem(const TabLayout& layout);

/// Divides a tablature into pages of so many rows, between its systems. Only a system that is
/// larger than a page exceeds one.
std::vector<TabPage> pagesOf(const TabLayout& layout, int rowsOfPage);

}  // namespace korvel
