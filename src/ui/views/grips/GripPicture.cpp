// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/views/grips/GripPicture.h"

#include <QPainter>
#include <QWidget>
#include <algorithm>

namespace korvel::ui {
namespace {

constexpr int kFretsShown = 5;
constexpr QRectF kNeck{18, 16, 50, 70};  // in a picture of kSize
constexpr double kDot = 4.5;             // radius
constexpr int kLetters = 12;             // height
constexpr double kNut = 3;

/// Of the fret at the top of a picture: 1 unless the shape is further up.
int firstFretOf(const ChordShape& shape) {
  int lowest = 0;
  for (const int fret : shape)
    if (fret > 0) lowest = lowest == 0 ? fret : std::min(lowest, fret);
  return std::ranges::max(shape) <= kFretsShown ? 1 : lowest;
}

}  // namespace

GripPicture::GripPicture(const ChordShape& shape, bool leftHanded)
    : m_shape(shape), m_leftHanded(leftHanded), m_firstFret(firstFretOf(shape)) {}

void GripPicture::paint(QPainter& painter, const QRectF& area) const {
  const double scale = std::min(area.width() / kSize.width(), area.height() / kSize.height());
  painter.save();
  painter.translate(area.center());
  painter.scale(scale, scale);
  painter.translate(-kSize.width() / 2.0, -kSize.height() / 2.0);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(painter.pen().color(), 1));
  QFont font = painter.font();
  font.setPixelSize(kLetters);
  painter.setFont(font);
  paintNeck(painter);
  for (int string = 0; string < kStrings; ++string) paintString(painter, string);
  painter.restore();
}

QIcon GripPicture::icon(const QWidget& widget) const {
  const double scale = widget.devicePixelRatioF();
  QPixmap picture(kSize * scale);
  picture.setDevicePixelRatio(scale);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setFont(widget.font());
  painter.setPen(widget.palette().color(QPalette::Text));
  paint(painter, QRectF(QPointF(), kSize));
  return picture;
}

void GripPicture::paintNeck(QPainter& painter) const {
  const double left = std::min(xOf(0), xOf(kStrings - 1));
  const double fret = kNeck.height() / kFretsShown;
  for (int i = 0; i <= kFretsShown; ++i)
    painter.drawLine(QPointF(left, kNeck.top() + i * fret),
                     QPointF(left + kNeck.width(), kNeck.top() + i * fret));
  for (int string = 0; string < kStrings; ++string)
    painter.drawLine(QPointF(xOf(string), kNeck.top()), QPointF(xOf(string), kNeck.bottom()));
  if (m_firstFret == 1) {
    painter.fillRect(QRectF(left - 0.5, kNeck.top() - kNut, kNeck.width() + 1, kNut),
                     painter.pen().color());
    return;
  }
  const QRectF beside = m_leftHanded ? QRectF(left + kNeck.width() + 5, kNeck.top(), 18, fret)
                                     : QRectF(0, kNeck.top(), left - 5, fret);
  const auto side = m_leftHanded ? Qt::AlignLeft : Qt::AlignRight;
  painter.drawText(beside, static_cast<int>(side | Qt::AlignVCenter), QString::number(m_firstFret));
}

void GripPicture::paintString(QPainter& painter, int string) const {
  const int fret = m_shape[static_cast<std::size_t>(string)];
  const double x = xOf(string);
  if (fret == kNotPlayed) {
    painter.drawText(QRectF(x - 6, 0, 12, kNeck.top() - 4), Qt::AlignCenter, "x");
    return;
  }
  const double height = kNeck.height() / kFretsShown;
  const double y =
      fret > 0 ? kNeck.top() + (fret - m_firstFret + 0.5) * height : kNeck.top() / 2 - 2;
  const double radius = fret > 0 ? kDot : kDot - 1;
  painter.setBrush(fret > 0 ? QBrush(painter.pen().color()) : Qt::NoBrush);
  painter.drawEllipse(QPointF(x, y), radius, radius);
}

double GripPicture::xOf(int string) const {
  const double fromLeft = kNeck.left() + string * kNeck.width() / (kStrings - 1);
  return m_leftHanded ? kSize.width() - fromLeft : fromLeft;
}

}  // namespace korvel::ui
