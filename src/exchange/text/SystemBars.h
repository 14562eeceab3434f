// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "exchange/PlayedOrder.h"
#include "exchange/text/TabSystems.h"
#include "exchange/text/TabWords.h"

namespace korvel::exchange {

/// What is struck together in a bar of a tablature.
struct Struck {
  struct Tone {
    int string;  ///< 0 the lowest-sounding one.
    int fret;    ///< -1 of a muted string.
  };
  std::size_t first;  ///< Column of the bar in which it begins, with a bracket before it.
  std::size_t last;   ///< That of its last digit.
  /// Columns that may be meant: one unless all of it is in brackets or has two digits.
  std::size_t from;
  std::size_t to;
  std::vector<Tone> tones;
};

/// A place of a bar that a row beside the strings counts, in grains from the beginning of the bar.
struct Mark {
  std::ptrdiff_t column;
  std::int64_t at;
};

/// What a row beside the strings says of a length.
struct RhythmSign {
  std::ptrdiff_t column;
  std::int64_t length;  ///< In grains.
  bool isRest = false;
  bool isAlone = false;  ///< A rest of its bar, however long that is.
};

/// A bar as it is written, or a system without bar lines. Columns count from its beginning.
struct TabBar {
  std::size_t column = 0;  ///< In the text.
  std::size_t width = 0;
  std::vector<Struck> struck{};
  BarSigns signs{};
  std::vector<Mark> marks{};
  std::vector<RhythmSign> rhythm{};
  struct Name {
    std::ptrdiff_t column;
    std::string text;
  };
  std::vector<Name> names{};
  std::optional<Metre> metre{};  ///< Told at this bar.
};

/// Cuts a system at its bar lines, or where these are missing at the columns given.
/// left: counts the signs of techniques, which are not kept.
std::vector<TabBar> barsOf(const TabSystem& system, bool upsideDown,
                           const std::vector<std::size_t>& cuts, std::map<std::string, int>& left);

/// Whether a bar line parts a system or ends it.
bool isBarred(const TabSystem& system);

}  // namespace korvel::exchange
