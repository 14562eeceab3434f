// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRectF>
#include <QString>
#include <vector>

#include "arrange/hands/HandShapes.h"
#include "ui/page/laid/PageFont.h"
#include "ui/views/Shades.h"

class QPainter;

namespace korvel::ui {

/// What is drawn on a page of chords: letters, grips, lines and points. Coordinates are those of
/// the page.
class PageInk {
 public:
  using Role = PageFont::Role;

  /// Nothing.
  PageInk() = default;
  /// plain: the font of plain letters.
  PageInk(const QFont& plain, bool leftHanded);

  /// scale: as the font's. Words may be wider than their place, and are not cut off.
  void addText(const QRectF& place, const QString& words, Role role, double scale = 1,
               Qt::Alignment align = Qt::AlignLeft);
  /// frets: as the page has them, in the order of its hand.
  void addGrip(const QRectF& place, const ChordShape& frets);
  /// Filled, as bar lines are.
  void addBox(const QRectF& place);
  void addPoint(const QPointF& centre, double radius);

  /// What lies between two heights.
  void paint(QPainter& painter, const Shades& shades, double top, double bottom) const;

 private:
  struct Text {
    QRectF place;
    QString words;
    Role role;
    double scale;
    Qt::Alignment align;
  };
  struct Picture {
    QRectF place;
    ChordShape shape;
  };
  struct Blot {
    QRectF place;
    bool isRound;
  };

  QFont m_plain;
  bool m_leftHanded = false;
  std::vector<Text> m_texts;
  std::vector<Picture> m_pictures;
  std::vector<Blot> m_blots;
};

}  // namespace korvel::ui
