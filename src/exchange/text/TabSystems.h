// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <map>
#include <optional>
#include <span>
#include <vector>

#include "exchange/text/StringLine.h"
#include "music/Neck.h"

namespace korvel::exchange {

/// The lines of six strings.
struct TabSystem {
  std::array<StringLine, kStrings> lines;  ///< As they stand in the text, from the top.
  std::size_t first = 0;                   ///< Row of the first of them.
  std::size_t end = 0;                     ///< Row behind the last one.
};

/// What a text has of systems.
struct TabSystems {
  std::vector<TabSystem> systems;
  std::map<int, int> others;  ///< How many there are of 4, 5, 7 or more lines.
};

/// Systems are lines of strings that follow one another, be it with a blank one between all of
/// them. What a mailer broke in two is joined, and lines at the ends of a system that are none of
/// its strings are left out.
TabSystems systemsOf(std::span<const Row> rows);

/// The open strings that the names of a system say, the lowest-sounding first: MIDI numbers near
/// those of standard tuning where no octave is written. None unless all have names.
std::optional<OpenPitches> openOf(const TabSystem& system);

/// Whether the lowest string is at the top.
bool isUpsideDown(const TabSystem& system);

}  // namespace korvel::exchange
