// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/BarLength.h"

#include <algorithm>
#include <cstdlib>

namespace korvel::exchange {

void fitBar(Bar& bar, std::int64_t length) {
  constexpr int kShortest = 64;
  const auto hasWhole = [&] {
    const std::int64_t beat = kGrainsOfWhole / bar.beatType;
    return std::abs((length + kRounding) / beat * beat - length) <= kRounding;
  };
  while (bar.beatType < kShortest && !hasWhole()) bar.beatType *= 2;
  const std::int64_t beat = kGrainsOfWhole / bar.beatType;
  bar.beats = static_cast<int>(std::max<std::int64_t>((length - kRounding + beat - 1) / beat, 1));
  bar.length = bar.beats * beat;
}

}  // namespace korvel::exchange
