// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/PlayedOrder.h"

#include <bit>

#include "platform/text/UserError.h"

namespace korvel::exchange {

namespace {

using platform::phrase;

constexpr int kMostRounds = 32;

/// Goes through the bars as a player does who remembers which signs he has obeyed.
class Player {
 public:
  explicit Player(std::span<const BarSigns> bars) : m_bars(bars) {}

  std::vector<std::size_t> play() {
    while (m_at < m_bars.size()) step();
    return std::move(m_order);
  }

 private:
  void step() {
    const BarSigns& bar = m_bars[m_at];
    if (bar.opensRepeat && m_opened != m_at) open(m_at);
    if (bar.endings != 0 && !isOfRound(bar)) {
      leave(bar);
      return;
    }
    if (m_order.size() >= kMostPlayedBars)
      throw platform::UserError(
          phrase("Exchange", "its repeats make more than %1 bars; nothing was read"),
          kMostPlayedBars);
    m_order.push_back(m_at);
    goOn(bar);
  }

  void open(std::size_t at) {
    m_opened = at;
    m_round = 1;
  }

  /// After a jump the last ending is the one that is played.
  bool isOfRound(const BarSigns& bar) const {
    const int round = m_hasJumped ? lastRound() : m_round;
    return round <= kMostRounds && (bar.endings >> (round - 1) & 1U) != 0;
  }

  int lastRound() const {
    unsigned endings = 0;
    for (std::size_t i = m_at; i < m_bars.size() && m_bars[i].endings != 0; ++i)
      endings |= m_bars[i].endings;
    return static_cast<int>(std::bit_width(endings));
  }

  /// A bar of another round's ending: a repeat that closes there is over with it.
  void leave(const BarSigns& bar) {
    ++m_at;
    if (bar.timesPlayed > 0 && bar.timesPlayed <= m_round && !hasLaterEnding()) open(m_at);
  }

  void goOn(const BarSigns& bar) {
    if (bar.isFine && m_until == BarSigns::Until::fine) {
      m_at = m_bars.size();
    } else if (bar.isToCoda && m_until == BarSigns::Until::coda && coda()) {
      m_until = BarSigns::Until::end;
      m_at = *coda();
      open(m_at);
    } else if (repeats(bar)) {
      ++m_round;
      m_at = m_opened;
    } else if (bar.jump != BarSigns::Jump::none && !m_hasJumped) {
      jump(bar);
    } else {
      ++m_at;
      if ((bar.timesPlayed > 0 || bar.endings != 0) && !hasLaterEnding()) open(m_at);
    }
  }

  /// After a jump repeats are not played again.
  bool repeats(const BarSigns& bar) const { return bar.timesPlayed > m_round && !m_hasJumped; }

  /// Endings that follow a closed repeat belong to it still.
  bool hasLaterEnding() const { return m_at < m_bars.size() && m_bars[m_at].endings != 0; }

  void jump(const BarSigns& bar) {
    m_hasJumped = true;
    m_until = bar.until;
    m_at = bar.jump == BarSigns::Jump::dalSegno ? segno() : 0;
    open(m_at);
  }

  std::size_t segno() const {
    const auto found = std::ranges::find_if(m_bars, &BarSigns::isSegno);
    return found == m_bars.end() ? 0 : static_cast<std::size_t>(found - m_bars.begin());
  }

  std::optional<std::size_t> coda() const {
    const auto found = std::ranges::find_if(m_bars, &BarSigns::isCoda);
    if (found == m_bars.end()) return std::nullopt;
    return static_cast<std::size_t>(found - m_bars.begin());
  }

  std::span<const BarSigns> m_bars;
  std::vector<std::size_t> m_order{};
  std::size_t m_at = 0;
  std::size_t m_opened = 0;
  int m_round = 1;
  bool m_hasJumped = false;
  BarSigns::Until m_until = BarSigns::Until::end;
};

}  // namespace

std::vector<std::size_t> playedOrder(std::span<const BarSigns> bars) { return Player(bars).play(); }

}  // namespace korvel::exchange
