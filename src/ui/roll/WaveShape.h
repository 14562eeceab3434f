// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLineF>
#include <QList>
#include <QRectF>
#include <optional>

class QPainter;

namespace korvel::ui {

/// The wave of a sound: a line from the lowest to the highest sample for each pixel, in its order,
/// joined to the one before.
class WaveShape {
 public:
  /// loudest: the sample that reaches the edge of the room.
  WaveShape(const QRectF& room, int loudest);

  /// The next pixel; then what it shows, in samples.
  void begin(double x);
  void add(int low, int high);
  void paint(QPainter& painter);

 private:
  struct Range {
    int low;
    int high;
  };

  void finishPixel();
  double y(int sample) const { return m_middle - sample * m_scale; }

  double m_middle;
  double m_scale;
  double m_x = 0;
  std::optional<Range> m_now{};
  std::optional<Range> m_before{};
  QList<QLineF> m_lines;
};

}  // namespace korvel::ui
