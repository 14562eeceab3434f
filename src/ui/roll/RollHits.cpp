// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/roll/RollHits.h"

#include <algorithm>
#include <cmath>

#include "music/Pitch.h"

namespace korvel::ui {
namespace {

constexpr double kReachOfEnd = 5;    ///< In pixels, to both sides.
constexpr double kShareOfEnd = 0.3;  ///< Of a short tone.

}  // namespace

bool RollHits::isInLanes(const QPointF& place) const {
  return place.x() >= m_scale.names() && place.x() < m_scale.x(m_roll.chords()) &&
         place.y() >= m_scale.lanes().top();
}

QRectF RollHits::rectOf(const ToneRoll::Tone& tone) const {
  return {m_scale.x(tone.chord), m_scale.top(tone.pitch), m_scale.width(tone.steps),
          std::max(2.0, m_scale.laneHeight() - 1)};
}

QRectF RollHits::rectOf(const RollNotes::Candidate& candidate) const {
  return {m_scale.xOfStep(candidate.from), m_scale.top(candidate.pitch),
          std::max(3.0, candidate.steps * m_scale.width(1)),
          std::max(2.0, m_scale.laneHeight() - 1)};
}

/// The one that begins last, where several are.
std::optional<RollHits::Tone> RollHits::toneAt(const QPointF& place) const {
  if (!isInLanes(place)) return {};
  const int chord = m_scale.chordAt(place.x());
  std::optional<Tone> found;
  const auto end = m_roll.endSounding(std::min(chord + 1, m_roll.chords()));
  for (auto tone = m_roll.firstSounding(std::max(chord - 1, 0)); tone != end; ++tone) {
    const QRectF rect = rectOf(*tone);
    const double reach = std::min(kReachOfEnd, rect.width() * kShareOfEnd);
    if (place.y() < rect.top() || place.y() > rect.bottom() + 1 || place.x() < rect.left() ||
        place.x() > rect.right() + reach)
      continue;
    const auto index = static_cast<std::size_t>(tone - m_roll.tones().begin());
    found = Tone{index, place.x() > rect.right() - reach};
  }
  return found;
}

std::optional<std::size_t> RollHits::candidateAt(const QPointF& place) const {
  if (!isInLanes(place)) return {};
  std::optional<std::size_t> found;
  for (std::size_t i = 0; i < m_notes.candidates.size(); ++i) {
    const QRectF rect = rectOf(m_notes.candidates[i]);
    if (rect.left() > place.x()) break;
    if (rect.adjusted(0, 0, 0, 1).contains(place)) found = i;
  }
  return found;
}

std::vector<ToneIndex> RollHits::tonesIn(const QRectF& area) const {
  std::vector<ToneIndex> found;
  for (const ToneRoll::Tone& tone : m_roll.tones())
    if (rectOf(tone).intersects(area)) found.push_back({tone.chord, tone.string});
  return found;
}

int RollHits::pitchAt(double y) const {
  return std::clamp(static_cast<int>(std::lround(m_scale.pitchAt(y))), 0, kHighestNote);
}

}  // namespace korvel::ui
