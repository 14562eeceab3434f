// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/page/GripsSheet.h"

#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <cmath>

#include "ui/desktop/Text.h"

namespace korvel::ui {
namespace {

constexpr int kSpace = 12;  ///< Pixels around it.

}  // namespace

GripsSheet::GripsSheet(const SongPage& page, QWidget* parent) : QWidget(parent) {
  setBackgroundRole(QPalette::Base);
  setAutoFillBackground(true);
  setAccessibleName(tr("Grips"));
  setPage(page);
}

void GripsSheet::setPage(const SongPage& page) {
  m_page = page;
  QStringList words;
  for (const PageGrip& grip : m_page.grips) {
    ChordShape frets = grip.frets;
    if (m_page.leftHanded) std::ranges::reverse(frets);
    words
        << tr("%1: %2", "a chord and its frets").arg(toText(grip.name), toText(shorthandOf(frets)));
  }
  setAccessibleDescription(words.join(", "));
  layOut();
}

QPoint GripsSheet::placeOf(int grip) const {
  for (const PageSheet::Grip& each : m_sheet.grips())
    if (each.grip == grip) return each.place.center().toPoint() + QPoint(kSpace, kSpace);
  return {};
}

void GripsSheet::layOut() {
  m_sheet = PageSheet(m_page, font(), std::max(1, width() - 2 * kSpace), PageSheet::Parts::grips);
  setMinimumHeight(static_cast<int>(std::ceil(m_sheet.height())) + 2 * kSpace);
  update();
}

void GripsSheet::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  painter.translate(kSpace, kSpace);
  m_sheet.paint(painter, Shades(palette()), event->rect().top() - kSpace,
                event->rect().bottom() - kSpace);
}

void GripsSheet::resizeEvent(QResizeEvent*) { layOut(); }

void GripsSheet::mousePressEvent(QMouseEvent* event) {
  const QPointF place = event->position() - QPointF(kSpace, kSpace);
  for (const PageSheet::Grip& grip : m_sheet.grips())
    if (grip.place.contains(place)) return emit clicked(grip.grip);
  QWidget::mousePressEvent(event);
}

}  // namespace korvel::ui
