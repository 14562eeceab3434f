// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/editing/rhythm/WishedRhythm.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "workflow/session/EditRefused.h"

namespace korvel {
namespace {

using platform::phrase;

/// Two beats are never nearer, in seconds.
constexpr double kLeastBeat = 0.1;
constexpr double kLongestBeat = 4;

bool isWhole(double factor) { return factor == std::round(factor); }

}  // namespace

WishedRhythm::WishedRhythm(const rhythm::Reading& reading, const rhythm::Wishes& wishes,
                           double tempo)
    : m_reading(reading), m_wishes(wishes), m_tempo(tempo) {}

void WishedRhythm::forgetBeats() {
  m_wishes.taps.clear();
  m_wishes.fixedBeats.clear();
}

void WishedRhythm::multiplyTempo(double factor) {
  const bool keepsDivision = isWhole(2 * factor) && isWhole(2 / factor);
  const std::vector<double> fixed = m_wishes.fixedBeats;
  setTempo(m_tempo * factor);
  if (factor == 2) m_wishes.fixedBeats = fixed;
  if (keepsDivision) return;
  m_wishes.feel.reset();
  m_wishes.metre.reset();
}

void WishedRhythm::setTempo(double beatsPerMinute) {
  if (!(beatsPerMinute >= kSlowest && beatsPerMinute <= kFastest))
    throw EditRefused(phrase("Message", "%1 beats a minute are not within %2 to %3"),
                      std::lround(std::clamp(beatsPerMinute, 0.0, 1e6)), std::lround(kSlowest),
                      std::lround(kFastest));
  forgetBeats();
  m_wishes.tempo = m_tempo = beatsPerMinute;
}

void WishedRhythm::setTaps(std::vector<double> seconds) {
  std::ranges::sort(seconds);
  const auto isSame = [](double before, double after) { return after - before < kLeastBeat; };
  seconds.erase(std::unique(seconds.begin(), seconds.end(), isSame), seconds.end());
  if (seconds.size() < kFewestTaps)
    throw EditRefused(phrase("Message", "tap along for at least %1 beats"),
                      static_cast<int>(kFewestTaps));
  forgetBeats();
  m_wishes.tempo.reset();
  m_wishes.taps = std::move(seconds);
}

/// Beats of compound metres are divided by three, so that they have no feel besides.
void WishedRhythm::setMetre(const rhythm::Metre& metre) {
  m_wishes.metre = metre;
  if (metre.compound) m_wishes.feel.reset();
}

void WishedRhythm::setFeel(rhythm::Feel feel) {
  m_wishes.feel = feel;
  if (m_wishes.metre && m_wishes.metre->compound) m_wishes.metre.reset();
}

void WishedRhythm::setFinest(int value) { m_wishes.finest = value; }

void WishedRhythm::setBarLine(double seconds) {
  const bool isWithin = !m_reading.beats.empty() &&
                        seconds >= m_reading.beats.front() - kLongestBeat &&
                        seconds <= m_reading.beats.back() + kLongestBeat;
  if (!isWithin) throw EditRefused(phrase("Message", "there are no beats at that time"));
  m_wishes.barLine = seconds;
}

void WishedRhythm::requireBeats() const {
  if (m_reading.beats.size() < kFewestTaps)
    throw EditRefused(phrase("Message", "the recording has too few beats for that"));
}

std::size_t WishedRhythm::nearestBeat(double seconds) const {
  const auto distance = [seconds](double beat) { return std::abs(beat - seconds); };
  return static_cast<std::size_t>(std::ranges::min_element(m_reading.beats, {}, distance) -
                                  m_reading.beats.begin());
}

/// Bar lines come again every bar, so that there is one among the first beats.
void WishedRhythm::moveBarLines(double beats) {
  requireBeats();
  if (!isWhole(beats)) return moveByHalf(beats > 0);
  const auto ofBar = static_cast<std::size_t>(std::max(m_reading.metre.beats, 1));
  const std::size_t first = m_reading.firstBar + (beats > 0 ? 1 : ofBar - 1);
  m_wishes.barLine = m_reading.beats[std::min(first, m_reading.beats.size() - 1)];
  m_wishes.metre = m_reading.metre;
}

/// All beats lie where the middles between them were.
void WishedRhythm::moveByHalf(bool later) {
  const auto& beats = m_reading.beats;
  const std::size_t ofBar = static_cast<std::size_t>(std::max(m_reading.metre.beats, 1));
  std::vector<double> middles;
  for (std::size_t i = 0; i + 1 < beats.size(); ++i)
    middles.push_back((beats[i] + beats[i + 1]) / 2);
  const std::size_t first = later ? m_reading.firstBar : m_reading.firstBar + ofBar - 1;
  const double barLine = middles[std::min(first, middles.size() - 1)];
  setTaps(std::move(middles));
  m_wishes.barLine = barLine;
  m_wishes.metre = m_reading.metre;
}

void WishedRhythm::dragBeat(double from, double to) {
  requireBeats();
  const auto& beats = m_reading.beats;
  const std::size_t beat = nearestBeat(from);
  if (beat > 0) to = std::max(to, beats[beat - 1] + kLeastBeat);
  if (beat + 1 < beats.size()) to = std::min(to, beats[beat + 1] - kLeastBeat);
  const auto isIt = [&](double time) { return nearestBeat(time) == beat; };
  std::erase_if(m_wishes.fixedBeats, isIt);
  if (const auto tap = std::ranges::find_if(m_wishes.taps, isIt); tap != m_wishes.taps.end()) {
    *tap = to;
    std::ranges::sort(m_wishes.taps);
  } else {
    m_wishes.fixedBeats.push_back(to);
    std::ranges::sort(m_wishes.fixedBeats);
    if (m_wishes.taps.empty()) m_wishes.tempo = m_reading.tempo();
  }
}

void WishedRhythm::choose(const rhythm::Alternative& other) {
  setTempo(std::clamp(other.tempo, kSlowest, kFastest));
  m_wishes.metre = other.metre;
  m_wishes.feel.reset();
  if (!other.metre.compound) m_wishes.feel = other.feel;
  m_wishes.barLine.reset();
}

}  // namespace korvel
