// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/roll/WaveShape.h"

#include <QPainter>
#include <algorithm>

namespace korvel::ui {
namespace {

/// What is fainter is not made larger, so that silence is flat.
constexpr int kFaintestWave = 400;
constexpr double kShareOfRoom = 0.46;  ///< Upwards, and downwards.

}  // namespace

WaveShape::WaveShape(const QRectF& room, int loudest)
    : m_middle(room.center().y()),
      m_scale(kShareOfRoom * room.height() / std::max(loudest, kFaintestWave)) {}

void WaveShape::begin(double x) {
  finishPixel();
  m_x = x;
}

void WaveShape::add(int low, int high) {
  if (!m_now) m_now = Range{low, high};
  m_now = Range{std::min(m_now->low, low), std::max(m_now->high, high)};
}

void WaveShape::finishPixel() {
  const auto now = std::exchange(m_now, std::nullopt);
  if (now) {
    Range drawn = *now;
    if (m_before) {
      drawn.low = std::min(drawn.low, m_before->high);
      drawn.high = std::max(drawn.high, m_before->low);
    }
    m_lines.append({m_x + 0.5, y(drawn.high) - 0.5, m_x + 0.5, y(drawn.low) + 0.5});
  }
  m_before = now;
}

void WaveShape::paint(QPainter& painter) {
  finishPixel();
  painter.drawLines(m_lines);
}

}  // namespace korvel::ui
