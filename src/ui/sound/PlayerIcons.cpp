// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sound/PlayerIcons.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <memory>
#include <utility>

namespace korvel::ui {
namespace {

/// A shape that is drawn whenever it is shown: sharp at any scale, and never in yesterday's
/// colours.
class ShapeIcon final : public QIconEngine {
 public:
  /// shape: its corners, in a square from 0 to 1.
  explicit ShapeIcon(QPolygonF shape) : m_shape(std::move(shape)) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(QGuiApplication::palette().color(group, QPalette::ButtonText));
    painter->translate(rect.topLeft());
    painter->scale(rect.width(), rect.height());
    painter->drawPolygon(m_shape);
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
  QPolygonF m_shape;
};

QIcon iconOf(const QPolygonF& shape) {
  return QIcon(std::make_unique<ShapeIcon>(shape).release());  // which the icon owns
}

}  // namespace

QIcon playIcon() { return iconOf({{0.25, 0.15}, {0.85, 0.5}, {0.25, 0.85}}); }

QIcon stopIcon() { return iconOf({{0.2, 0.2}, {0.8, 0.2}, {0.8, 0.8}, {0.2, 0.8}}); }

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
