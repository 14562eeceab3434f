// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "exchange/text/SystemBars.h"

namespace korvel::exchange {

/// The rows beside a system, and what they say of its bars: names of chords above; counted beats
/// such as "1 & 2 &" or letters of lengths such as "q e e" above or below; stems below, as the
/// program's own text has them.
///
///     |   |.   o   r        a quarter, a dotted one, whole, a rest
///     -   -    o            an eighth has one, a half note is "o" here
///     -                     a sixteenth has two; "3" beside it is of a triplet
class RhythmRows {
 public:
  /// rows: of the whole text. The rows from `from` on and up to `to` belong to no other system.
  RhythmRows(std::span<const Row> rows, const TabSystem& system, std::size_t from, std::size_t to);

  /// Whether beats are counted or lengths told above the strings.
  bool isToldAbove() const;
  /// Columns of the counted first beats, but for that of the first bar.
  std::vector<std::size_t> cuts(bool above) const;
  /// What is known of all systems.
  struct Known {
    bool isAbove;               ///< Beats and lengths are told above the strings.
    std::optional<Metre> told;  ///< The metre, in words.
    bool isOwn;                 ///< The program wrote the text.
  };
  /// Tells the bars of the system what is said of them.
  void tell(std::vector<TabBar>& bars, const Known& known) const;

  /// The rows that say something, which are no prose.
  const std::vector<std::size_t>& rows() const { return m_said; }

 private:
  struct Count {
    std::size_t column;
    int number;     ///< 0 for a sign between two numbers.
    char32_t sign;  ///< Of those: "+", "e", "a" or ".".
  };
  using Counts = std::vector<Count>;
  struct Sign {
    std::size_t column;
    RhythmSign sign;
  };

  static Counts countsOf(const Row& row);
  static std::vector<Sign> lettersOf(const Row& row);
  const Row& below(std::size_t n) const;
  std::vector<Sign> stems() const;
  Sign stem(std::size_t column) const;
  void joinTriplets(std::vector<Sign>& signs) const;
  Counts counts(bool above) const;
  std::vector<Sign> letters(bool above) const;
  static Metre metreOf(int highest, bool hasHalves, const Known& known);
  static bool areBarNumbers(std::vector<TabBar>& bars, const Counts& counts);
  static void tellBeat(TabBar& bar, std::span<const Count> beat, bool hasHalves, std::int64_t unit);
  static void tellCounts(std::vector<TabBar>& bars, const Counts& counts, const Known& known);
  void tellNames(std::vector<TabBar>& bars, const Known& known) const;
  void tellTimes(std::vector<TabBar>& bars) const;

  std::span<const Row> m_rows;
  std::size_t m_end;
  std::size_t m_to;
  std::vector<std::size_t> m_above;  ///< Rows, the nearest first.
  std::vector<std::size_t> m_below;
  std::vector<std::size_t> m_said;
};

}  // namespace korvel::exchange
