// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/exchange/PieceBars.h"

#include <algorithm>
#include <cmath>

#include "exchange/Piece.h"
#include "exchange/PlayedOrder.h"
#include "music/Ticks.h"
#include "platform/text/UserError.h"

namespace korvel {
namespace {

using exchange::kGrainsOfQuarter;

constexpr std::int64_t kGrainsOfWhole = 4 * kGrainsOfQuarter;
constexpr std::int64_t kGrainsOfSixteenth = kGrainsOfQuarter / 4;
/// Of a tick; what files count in rounds off a little less.
constexpr double kExact = 0.05;

bool isWritable(const exchange::Bar& bar) {
  const int type = bar.beatType;
  return bar.beats > 0 && (type == 1 || type == 2 || type == 4 || type == 8 || type == 16);
}

std::int64_t writtenLength(const exchange::Bar& bar) {
  return bar.beats * kGrainsOfWhole / bar.beatType;
}

/// In quarters, eighths or sixteenths, whatever fits.
TimeSignature signatureOfLength(std::int64_t grains) {
  const auto sixteenths =
      static_cast<int>(std::max<std::int64_t>((grains * 2 / kGrainsOfSixteenth + 1) / 2, 1));
  if (sixteenths % 4 == 0) return {sixteenths / 4, 4};
  if (sixteenths % 2 == 0) return {sixteenths / 2, 8};
  return {sixteenths, 16};
}

std::int64_t endOf(const exchange::Piece& piece) {
  std::int64_t end = 0;
  for (const exchange::Track& track : piece.tracks)
    for (const exchange::Note& note : track.notes)
      end = std::max(end, note.at + (piece.bars.empty() ? note.length : 1));
  return end;
}

}  // namespace

bool PieceBars::Bar::isCompound() const {
  return korvel::isCompound(signature.beat, signature.beattype);
}

PieceBars::PieceBars(const exchange::Piece& piece) {
  const auto& bars = piece.bars;
  for (std::size_t i = 0; i < bars.size(); ++i)
    if (bars[i].length > 0) add(bars[i], i == 0 && bars.size() > 1);
  if (m_bars.empty()) add({.at = 0, .length = kGrainsOfWhole}, false);
  goOnTo(endOf(piece));
}

void PieceBars::add(const exchange::Bar& bar, bool isPickUp) {
  Bar added{bar.at, bar.length, 0, 0, {bar.beats, bar.beatType}};
  const bool isPart = isPickUp && isWritable(bar) && bar.length < writtenLength(bar);
  if (!isPart && (!isWritable(bar) || bar.length != writtenLength(bar)))
    added.signature = signatureOfLength(bar.length);
  added.ticks = ticksOfBar(added.signature.beat, added.signature.beattype);
  if (isPart) {
    const double share = static_cast<double>(bar.length) / static_cast<double>(writtenLength(bar));
    added.ticks = std::max(static_cast<int>(std::lround(share * added.ticks)), 1);
    added.tick = -added.ticks;
  }
  if (!m_bars.empty()) added.tick = m_bars.back().end();
  m_bars.push_back(added);
}

void PieceBars::goOnTo(std::int64_t end) {
  const Bar last = m_bars.back();
  const std::int64_t length = std::max<std::int64_t>(
      kGrainsOfWhole * last.signature.beat / last.signature.beattype, kGrainsOfSixteenth);
  const auto count = static_cast<std::int64_t>(m_bars.size());
  const auto most = static_cast<std::int64_t>(exchange::kMostPlayedBars);
  if (count > most || (end - last.at - last.length) / length > most - count)
    throw platform::UserError(
        platform::phrase("Exchange", "has more than %1 bars; import a part of it"),
        exchange::kMostPlayedBars);
  while (m_bars.back().at + m_bars.back().length < end)
    add({m_bars.back().at + m_bars.back().length, length, last.signature.beat,
         last.signature.beattype},
        false);
}

PieceBars::Place PieceBars::placeOf(std::int64_t grains) const {
  const auto after = std::upper_bound(m_bars.begin() + 1, m_bars.end(), grains,
                                      [](std::int64_t at, const Bar& bar) { return at < bar.at; });
  const Bar& bar = *(after - 1);
  const double tick =
      static_cast<double>(grains - bar.at) * bar.ticks / static_cast<double>(bar.length);
  const auto nearest = static_cast<int>(std::lround(tick));
  return {bar.tick + nearest, std::abs(tick - nearest) < kExact};
}

double PieceBars::grainsOf(int tick) const {
  const Bar& bar = m_bars[barAt(tick)];
  return static_cast<double>(bar.at) +
         static_cast<double>(tick - bar.tick) * static_cast<double>(bar.length) / bar.ticks;
}

std::size_t PieceBars::barAt(int tick) const {
  const auto after = std::upper_bound(m_bars.begin() + 1, m_bars.end(), tick,
                                      [](int at, const Bar& bar) { return at < bar.tick; });
  return static_cast<std::size_t>(after - m_bars.begin() - 1);
}

}  // namespace korvel
