// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "tab/layout/TabLayout.h"

namespace korvel {

/// The whole text, without blanks at the ends of rows.
std::string textOf(const TabLayout& layout);

/// A tablature of just the chords from first to last: of each system that has some of them the
/// names of the strings and their columns. Chords that are not drawn are left out.
std::string textOfChords(const TabLayout& layout, int first, int last);

}  // namespace korvel
