// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/page/laid/PageFont.h"

#include <QFontMetricsF>
#include <algorithm>
#include <cmath>

namespace korvel::ui {

PageFont::PageFont(const QFont& plain, const QPaintDevice* device)
    : m_plain(plain), m_device(device), m_line(height(Role::plain)) {}

QFont PageFont::font(Role role, double scale) const {
  QFont made = m_plain;
  const auto resize = [&](double by) {
    if (made.pointSizeF() > 0)
      made.setPointSizeF(made.pointSizeF() * by * scale);
    else
      made.setPixelSize(std::max(1, static_cast<int>(std::lround(made.pixelSize() * by * scale))));
  };
  switch (role) {
    case Role::title:
      made.setBold(true);
      resize(1.7);
      break;
    case Role::chord:
    case Role::chordGoingOn:
    case Role::letter:
      made.setBold(true);
      resize(1.25);
      break;
    case Role::gripName:
      made.setBold(true);
      resize(1);
      break;
    case Role::artist:
      resize(1.15);
      break;
    case Role::small:
      resize(0.8);
      break;
    case Role::plain:
    case Role::faint:
      resize(1);
  }
  return made;
}

double PageFont::height(Role role) const {
  const QFont letters = font(role);
  return std::ceil((m_device ? QFontMetricsF(letters, m_device) : QFontMetricsF(letters)).height());
}

double PageFont::width(Role role, const QString& words) const {
  const QFont letters = font(role);
  const QFontMetricsF metrics =
      m_device ? QFontMetricsF(letters, m_device) : QFontMetricsF(letters);
  return metrics.horizontalAdvance(words);
}

QStringList PageFont::linesOf(const QString& words, Role role, double room) const {
  if (width(role, words) <= room) return {words};
  QStringList lines;
  for (const QString& word : words.split(' '))
    if (!lines.isEmpty() && width(role, lines.last() + ' ' + word) <= room)
      lines.last() += ' ' + word;
    else
      lines << word;
  return lines;
}

}  // namespace korvel::ui
