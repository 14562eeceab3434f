// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>
#include <QRectF>
#include <QSize>

#include "arrange/hands/HandShapes.h"

class QPainter;
class QWidget;

namespace korvel::ui {

/// How a hand holds a chord, as chord books draw it: the low string at the left, the nut at the
/// top, and for a left hand the other way round. A shape further up has the number of its first
/// fret beside it.
class GripPicture {
 public:
  /// In which it is as large as in a list of shapes; others have its proportions.
  static constexpr QSize kSize{76, 92};

  explicit GripPicture(const ChordShape& shape, bool leftHanded = false);

  /// As large as fits into the middle of the area, in the painter's pen.
  void paint(QPainter& painter, const QRectF& area) const;
  /// In kSize and the colours of a widget.
  QIcon icon(const QWidget& widget) const;

 private:
  void paintNeck(QPainter& painter) const;
  void paintString(QPainter& painter, int string) const;
  double xOf(int string) const;

  ChordShape m_shape;
  bool m_leftHanded;
  int m_firstFret;
};

}  // namespace korvel::ui
