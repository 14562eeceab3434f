// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/page/laid/GripRows.h"

#include <algorithm>

#include "ui/desktop/Text.h"
#include "ui/page/laid/PageSpacing.h"
#include "ui/views/grips/GripPicture.h"

namespace korvel::ui {
namespace {

using namespace spacing;
using Role = PageFont::Role;

// In heights of a line.
constexpr double kGripHeight = 5;
constexpr double kLargeGripHeight = 7;
constexpr double kBetweenGrips = 0.8;

constexpr double kGripShape = double(GripPicture::kSize.width()) / GripPicture::kSize.height();

QString titleOf(const PageGrip& grip) {
  QString title = toText(grip.name);
  if (grip.shape != grip.name) title += ' ' + toText(grip.shape);
  if (grip.sounding != grip.shape) title += " (" + toText(grip.sounding) + ')';
  return title;
}

}  // namespace

void GripRows::addGrip(LaidPage& laid, const QRectF& cell, const ChordShape& frets,
                       const QString& name) const {
  const double letters = m_font.height(Role::gripName);
  const double fits =
      std::min(1.0, cell.width() / std::max(1.0, m_font.width(Role::gripName, name)));
  laid.ink.addText({cell.left(), cell.top(), cell.width(), letters}, name, Role::gripName,
                   std::max(kSmallestScale, fits), Qt::AlignHCenter);
  laid.ink.addGrip(cell.adjusted(0, letters, 0, 0), frets);
}

/// Wide enough for each name, if the page is.
double GripRows::cellWidth(double height) const {
  double widest = height * kGripShape;
  for (const PageGrip& grip : m_page.grips)
    widest = std::max(widest, m_font.width(Role::gripName, titleOf(grip)));
  return std::min(m_width, widest + kBetweenGrips * m_font.line());
}

void GripRows::addTo(LaidPage& laid) const {
  if (m_page.grips.empty()) return;
  const double height = kGripHeight * m_font.line();
  const double cell = cellWidth(height);
  const int ofRow = std::max(1, static_cast<int>(m_width / cell));
  const double tall = m_font.height(Role::gripName) + height;
  for (int i = 0; i < static_cast<int>(m_page.grips.size()); ++i) {
    if (i % ofRow == 0) laid.beginBand();
    const PageGrip& grip = m_page.grips[static_cast<std::size_t>(i)];
    const QRectF place(i % ofRow * cell, laid.y, cell - kBetweenGrips * m_font.line(), tall);
    addGrip(laid, place, grip.frets, titleOf(grip));
    laid.grips.push_back({place, i});
    if ((i + 1) % ofRow != 0 && i + 1 < static_cast<int>(m_page.grips.size())) continue;
    laid.y += tall + kBetweenLines * m_font.line();
    laid.endBand();
  }
}

void GripRows::addWithOthersTo(LaidPage& laid) const {
  const double height = kLargeGripHeight * m_font.line();
  const double cell = height * kGripShape + kBetweenGrips * m_font.line();
  const double tall = m_font.height(Role::gripName) + height;
  for (int i = 0; i < static_cast<int>(m_page.grips.size()); ++i) {
    const PageGrip& grip = m_page.grips[static_cast<std::size_t>(i)];
    laid.beginBand();
    const QRectF place(0, laid.y, cell, tall);
    addGrip(laid, place, grip.frets, titleOf(grip));
    laid.grips.push_back({place, i});
    double x = cell + m_font.line();
    for (const ChordShape& other : grip.others) {
      if (x + cell > m_width) break;
      const QRectF beside(x, laid.y + m_font.line(), cell, tall - m_font.line());
      addGrip(laid, beside, other, {});
      laid.grips.push_back({beside, i, static_cast<int>(&other - grip.others.data())});
      x += cell;
    }
    laid.y += tall + m_font.line();
    laid.endBand();
  }
}

}  // namespace korvel::ui
