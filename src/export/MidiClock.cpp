// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/MidiClock.h"

#include <algorithm>
#include <cmath>

namespace korvel {
namespace {

constexpr double kMicroseconds = 1e6;
/// Seconds of a beat: what a file cannot tell, and what samples cannot.
constexpr double kRounding = 1e-6;
constexpr double kNoChange = 5e-5;

}  // namespace

void MidiClock::addBeat(double seconds, std::int64_t tick) { m_beats.push_back({seconds, tick}); }

std::int64_t MidiClock::tickAt(double seconds) const {
  const auto after =
      std::upper_bound(m_beats.begin() + 1, m_beats.end() - 1, seconds,
                       [](double at, const Beat& beat) { return at < beat.seconds; });
  const Beat& from = *(after - 1);
  const double share = (seconds - from.seconds) / (after->seconds - from.seconds);
  return from.tick + std::llround(share * static_cast<double>(after->tick - from.tick));
}

std::vector<MidiTempo> MidiClock::tempi(double rate) const {
  std::vector<MidiTempo> tempi;
  double told = m_beats.front().seconds;  // where a beat begins by the tempi before it
  for (std::size_t i = 0; i + 1 < m_beats.size(); ++i) {
    const Beat& beat = m_beats[i];
    const Beat& next = m_beats[i + 1];
    const double quarters = static_cast<double>(next.tick - beat.tick) / m_division;
    const double goOn = tempi.empty() ? 0 : tempi.back().quarterSeconds * rate * quarters;
    const double changed = std::abs(next.seconds - beat.seconds - goOn);
    const double late = std::abs(next.seconds - told - goOn);
    if (changed > kRounding && std::max(changed, late) > kNoChange) {
      const double exact = (next.seconds - told) / quarters / rate;
      tempi.push_back({beat.tick, std::round(exact * kMicroseconds) / kMicroseconds});
    }
    told += tempi.back().quarterSeconds * rate * quarters;
  }
  return tempi;
}

}  // namespace korvel
