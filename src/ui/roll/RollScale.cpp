// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/roll/RollScale.h"

#include <QFontMetricsF>
#include <algorithm>
#include <cmath>
#include <vector>

namespace korvel::ui {
namespace {

constexpr int kLanesBeside = 1;  ///< Free ones above and below the tones.
constexpr int kFewestLanes = 14;
constexpr double kMostPixels = 1e9;  ///< Of a song, by which scroll bars can still count.

// In heights of a line of text.
constexpr double kStepWidth = 1.1;
constexpr double kRulerHeight = 1.3;
constexpr double kTallestLane = 0.9;
constexpr double kOutlinedLane = 0.4;

}  // namespace

void RollScale::setFont(const QFont& font) {
  const QFontMetricsF metrics(font);
  m_line = metrics.height();
  m_names = std::ceil(metrics.horizontalAdvance("Bb4") + m_line * 0.6);
  setZoom(m_zoom);
}

void RollScale::setZoom(double percent) {
  m_zoom = percent;
  m_step = m_line * kStepWidth * m_zoom / 100;
}

double RollScale::zoomOfWhole() const {
  const double own = width(m_roll.begin(m_roll.chords())) / m_zoom;
  return own > 0 ? (m_viewport.width() - m_names - m_line) / own : m_zoom;
}

int RollScale::wholeWidth() const {
  const double pixels = std::ceil(width(m_roll.begin(m_roll.chords())) + m_names + m_line);
  return static_cast<int>(std::min(pixels, 2 * kMostPixels));
}

double RollScale::zoomOfPixels() const {
  return kMostPixels * m_zoom / std::max(width(m_roll.begin(m_roll.chords())), 1.0);
}

// ---- time

double RollScale::columnWidth(int chord) const {
  return chord < m_roll.chords() ? width(m_roll.stepsOf(chord)) : m_step;
}

int RollScale::chordAt(double x) const {
  return m_roll.chordAt(static_cast<int>(std::floor(stepAt(x))));
}

std::optional<int> RollScale::beatNear(const QPointF& place) const {
  if (m_roll.beats().empty() || place.y() >= rulerHeight()) return {};
  std::vector<int> lines = m_roll.beats();
  for (const int chord : m_roll.bars()) lines.push_back(m_roll.begin(chord));
  const auto distance = [&](int step) { return std::abs(xOfStep(step) - place.x()); };
  const int nearest = *std::ranges::min_element(lines, {}, distance);
  return distance(nearest) <= kReachOfLine ? std::optional(nearest) : std::nullopt;
}

// ---- pitch

double RollScale::rulerHeight() const { return kRulerHeight * m_line; }

QRectF RollScale::wave() const {
  return {0, rulerHeight(), static_cast<double>(m_viewport.width()), m_wave};
}

QRectF RollScale::lanes() const {
  const double top = rulerHeight() + m_wave;
  return {0, top, static_cast<double>(m_viewport.width()), std::max(1.0, height() - top)};
}

double RollScale::laneHeight() const {
  const int tones = m_roll.highestPitch() - m_roll.lowestPitch() + 1;
  const int count = std::max(kFewestLanes, tones + 2 * kLanesBeside);
  return std::clamp(lanes().height() / count, 2.0, kTallestLane * m_line);
}

double RollScale::top(int pitch) const {
  const double middle = (m_roll.highestPitch() + m_roll.lowestPitch()) / 2.0;
  return lanes().center().y() + (middle - pitch - 0.5) * laneHeight();
}

double RollScale::pitchAt(double y) const {
  const double middle = (m_roll.highestPitch() + m_roll.lowestPitch()) / 2.0;
  return middle - (y - lanes().center().y()) / laneHeight();
}

bool RollScale::showsOutlines() const { return laneHeight() >= kOutlinedLane * m_line; }

// ---- tones and columns

QRectF RollScale::headOf(const ToneRoll::Tone& tone) const {
  const double head = width(std::min(tone.steps, m_roll.stepsOf(tone.chord)));
  const double gap = std::min(1.0, head / 8);
  return {x(tone.chord) + gap, top(tone.pitch), head - 2 * gap, std::max(2.0, laneHeight() - 1)};
}

QRectF RollScale::tailOf(const ToneRoll::Tone& tone) const {
  const double inset = laneHeight() * 0.3;
  return {x(tone.chord + 1) - 1, top(tone.pitch) + inset,
          width(tone.steps - m_roll.stepsOf(tone.chord)),
          std::max(1.0, laneHeight() - 1 - 2 * inset)};
}

QRect RollScale::chordRect(int chord) const {
  if (chord < 0 || chord >= m_roll.chords()) return {};
  return QRectF(x(chord), 0, columnWidth(chord), height()).toAlignedRect();
}

}  // namespace korvel::ui
