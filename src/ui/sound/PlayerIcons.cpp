// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sound/PlayerIcons.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPainterPathStroker>
#include <QPalette>
#include <memory>
#include <utility>

namespace korvel::ui {
namespace {

/// A shape that is drawn whenever it is shown: sharp at any scale, and never in yesterday's
/// colours.
class ShapeIcon final : public QIconEngine {
 public:
  /// shape: what is filled, in a square from 0 to 1.
  explicit ShapeIcon(QPainterPath shape) : m_shape(std::move(shape)) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(QGuiApplication::palette().color(group, QPalette::ButtonText));
    painter->translate(rect.topLeft());
    painter->scale(rect.width(), rect.height());
    painter->drawPath(m_shape);
    painter->restore();
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap drawn(size);
    drawn.fill(Qt::transparent);
    QPainter painter(&drawn);
    paint(&painter, drawn.rect(), mode, state);
    return drawn;
  }

  QIconEngine* clone() const override { return std::make_unique<ShapeIcon>(*this).release(); }

 private:
  QPainterPath m_shape;
};

QIcon iconOf(const QPainterPath& shape) {
  return QIcon(std::make_unique<ShapeIcon>(shape).release());  // which the icon owns
}

QIcon iconOf(const QPolygonF& corners) {
  QPainterPath shape;
  shape.addPolygon(corners);
  return iconOf(shape);
}

/// What a pen draws along a path.
QPainterPath drawn(const QPainterPath& path) {
  constexpr double kPen = 0.09;
  QPainterPathStroker pen;
  pen.setWidth(kPen);
  pen.setCapStyle(Qt::RoundCap);
  pen.setJoinStyle(Qt::RoundJoin);
  return pen.createStroke(path);
}

QPainterPath line(const QPointF& from, const QPointF& to) {
  QPainterPath path(from);
  path.lineTo(to);
  return drawn(path);
}

}  // namespace

QIcon playIcon() { return iconOf({{0.25, 0.15}, {0.85, 0.5}, {0.25, 0.85}}); }

QIcon stopIcon() { return iconOf({{0.2, 0.2}, {0.8, 0.2}, {0.8, 0.8}, {0.2, 0.8}}); }

QIcon resetLoopIcon() {
  const QRectF circle(0.2, 0.2, 0.6, 0.6);
  QPainterPath round;
  round.arcMoveTo(circle, 60);
  round.arcTo(circle, 60, 290);
  QPainterPath shape = drawn(round).united(line({0.12, 0.12}, {0.88, 0.88}));
  shape.addPolygon(QPolygonF{{0.62, 0.42}, {0.96, 0.42}, {0.79, 0.62}, {0.62, 0.42}});
  shape.setFillRule(Qt::WindingFill);
  return iconOf(shape);
}

QIcon metronomeIcon() {
  QPainterPath box;
  box.addPolygon(QPolygonF{{0.38, 0.12}, {0.62, 0.12}, {0.8, 0.88}, {0.2, 0.88}, {0.38, 0.12}});
  return iconOf(drawn(box).united(line({0.5, 0.7}, {0.82, 0.22})));
}

QIcon countInIcon() {
  QFont font;
  font.setBold(true);
  font.setPixelSize(100);  // of which the square is a part
  QPainterPath numbers;
  numbers.addText(0, 0, font, "123");
  const QRectF size = numbers.boundingRect();
  const double scale = 0.9 / size.width();
  QTransform fit;
  fit.translate(0.5, 0.5);
  fit.scale(scale, scale);
  fit.translate(-size.center().x(), -size.center().y());
  return iconOf(fit.map(numbers));
}

QIcon strictTempoIcon() {
  QPainterPath strokes = line({0.1, 0.85}, {0.9, 0.85});
  for (const double x : {0.14, 0.38, 0.62, 0.86})
    strokes = strokes.united(line({x, 0.2}, {x, 0.85}));
  return iconOf(strokes);
}

QIcon volumeIcon() {
  QPainterPath shape;
  shape.addPolygon(QPolygonF{
      {0.1, 0.38}, {0.28, 0.38}, {0.5, 0.16}, {0.5, 0.84}, {0.28, 0.62}, {0.1, 0.62}, {0.1, 0.38}});
  for (const double size : {0.3, 0.6}) {
    const QRectF circle(0.56 - size / 2, 0.5 - size / 2, size, size);
    QPainterPath wave;
    wave.arcMoveTo(circle, -50);
    wave.arcTo(circle, -50, 100);
    shape.addPath(drawn(wave));
  }
  shape.setFillRule(Qt::WindingFill);
  return iconOf(shape);
}

QIcon soundIcon() {
  QPainterPath shape;
  for (const auto& [y, knob] : {std::pair{0.22, 0.65}, {0.5, 0.3}, {0.78, 0.55}}) {
    shape = shape.united(line({0.12, y}, {0.88, y}));
    QPainterPath round;
    round.addEllipse(QPointF(knob, y), 0.12, 0.12);
    shape = shape.united(round);
  }
  return iconOf(shape);
}

QIcon moreIcon() {
  return iconOf({{0.1, 0.25},
                 {0.45, 0.5},
                 {0.1, 0.75},
                 {0.1, 0.25},
                 {0.5, 0.25},
                 {0.85, 0.5},
                 {0.5, 0.75},
                 {0.5, 0.25},
                 {0.1, 0.25}});
}

}  // namespace korvel::ui
