// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/page/laid/PageInk.h"

#include <QPainter>
#include <algorithm>

#include "ui/views/grips/GripPicture.h"

namespace korvel::ui {
namespace {

/// The low string first, whichever hand it is drawn for.
ChordShape byString(ChordShape frets, bool leftHanded) {
  if (leftHanded) std::ranges::reverse(frets);
  return frets;
}

}  // namespace

PageInk::PageInk(const QFont& plain, bool leftHanded) : m_plain(plain), m_leftHanded(leftHanded) {}

void PageInk::addText(const QRectF& place, const QString& words, Role role, double scale,
                      Qt::Alignment align) {
  if (!words.isEmpty()) m_texts.push_back({place, words, role, scale, align});
}

void PageInk::addGrip(const QRectF& place, const ChordShape& frets) {
  m_pictures.push_back({place, byString(frets, m_leftHanded)});
}

void PageInk::addBox(const QRectF& place) { m_blots.push_back({place, false}); }

void PageInk::addPoint(const QPointF& centre, double radius) {
  m_blots.push_back({{centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius}, true});
}

void PageInk::paint(QPainter& painter, const Shades& shades, double top, double bottom) const {
  const auto isSeen = [&](const QRectF& place) {
    return place.bottom() >= top && place.top() <= bottom;
  };
  const PageFont font(m_plain);
  painter.setPen(Qt::NoPen);
  painter.setBrush(shades.line);
  for (const Blot& blot : m_blots) {
    if (!isSeen(blot.place)) continue;
    blot.isRound ? painter.drawEllipse(blot.place) : painter.fillRect(blot.place, shades.line);
  }
  painter.setBrush(Qt::NoBrush);
  for (const Picture& picture : m_pictures) {
    if (!isSeen(picture.place)) continue;
    painter.setFont(m_plain);
    painter.setPen(shades.text);
    GripPicture(picture.shape, m_leftHanded).paint(painter, picture.place);
  }
  for (const Text& text : m_texts) {
    if (!isSeen(text.place)) continue;
    const bool isFaint =
        text.role == Role::faint || text.role == Role::small || text.role == Role::chordGoingOn;
    painter.setPen(isFaint ? shades.faintText : shades.text);
    painter.setFont(font.font(text.role, text.scale));
    painter.drawText(text.place, static_cast<int>(text.align | Qt::TextDontClip), text.words);
  }
}

}  // namespace korvel::ui
