// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/exchange/PieceTime.h"

#include <algorithm>
#include <cmath>

#include "exchange/Piece.h"

namespace korvel {
namespace {

constexpr double kUsualTempo = 120;
/// Below it, as above the fastest, a song would not be played by its beats any more.
constexpr double kSlowestTempo = 16;
constexpr double kSteadyTempo = 0.001;
constexpr double kMinuteOfGrain = 60.0 / exchange::kGrainsOfQuarter;

double playable(double tempo, double fastest) {
  return std::clamp(std::isfinite(tempo) ? tempo : kUsualTempo, kSlowestTempo, fastest);
}

}  // namespace

PieceTime::PieceTime(const exchange::Piece& piece, double fastest)
    : m_parts{{0, 0, playable(kUsualTempo, fastest)}} {
  for (const exchange::Tempo& tempo : piece.tempos) {
    const auto at = static_cast<double>(std::max<std::int64_t>(tempo.at, 0));
    const double played = playable(tempo.quartersAMinute, fastest);
    if (at <= m_parts.back().from)
      m_parts.back().tempo = played;
    else
      m_parts.push_back({at, secondsOf(at), played});
  }
}

const PieceTime::Part& PieceTime::partAt(double grains) const {
  const auto after = std::upper_bound(m_parts.begin() + 1, m_parts.end(), grains,
                                      [](double at, const Part& part) { return at < part.from; });
  return *(after - 1);
}

double PieceTime::secondsOf(double grains) const {
  const Part& part = partAt(grains);
  return part.seconds + (grains - part.from) * kMinuteOfGrain / part.tempo;
}

bool PieceTime::isSteady() const {
  return std::ranges::all_of(m_parts, [this](const Part& part) {
    return std::abs(part.tempo / m_parts.front().tempo - 1) < kSteadyTempo;
  });
}

double PieceTime::tempoAt(double grains) const { return partAt(grains).tempo; }

}  // namespace korvel
