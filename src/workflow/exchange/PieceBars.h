// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <vector>

#include "analysis/beats/WrittenChords.h"

namespace korvel {

namespace exchange {
struct Bar;
struct Piece;
}  // namespace exchange

/// The bars of a piece as a song on beats counts them: in ticks from the first bar line, a pick-up
/// before it.
class PieceBars {
 public:
  struct Bar {
    std::int64_t at = 0;      ///< In grains, as the piece counts.
    std::int64_t length = 0;  ///< Likewise.
    int tick = 0;
    int ticks = 0;
    TimeSignature signature;

    int end() const { return tick + ticks; }
    bool isCompound() const;
  };
  struct Place {
    int tick = 0;
    bool isExact = true;  ///< Otherwise the tick is only the one next to it.
  };

  /// A piece that knows no bars has some of 4/4, and one that goes on behind its last bar has more
  /// of that. UserError for more bars than any music has.
  explicit PieceBars(const exchange::Piece& piece);

  const std::vector<Bar>& bars() const { return m_bars; }
  int begin() const { return m_bars.front().tick; }
  int end() const { return m_bars.back().end(); }
  Place placeOf(std::int64_t grains) const;
  /// The first grain of a tick.
  double grainsOf(int tick) const;
  /// Which of the bars a tick lies in; the first or the last one outside of them.
  std::size_t barAt(int tick) const;

 private:
  void add(const exchange::Bar& bar, bool isPickUp);
  void goOnTo(std::int64_t end);

  std::vector<Bar> m_bars;  ///< One at least, without gaps.
};

}  // namespace korvel
