// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/views/Shades.h"

#include <algorithm>
#include <cmath>

namespace korvel::ui {
namespace {

constexpr double kReadable = 4.5;

/// Relative luminance, 0 to 1.
double luminance(const QColor& color) {
  const auto linear = [](float part) {
    return part <= 0.04045F ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
         0.0722 * linear(color.blueF());
}

/// The ground, as far away from the text as that needs to be readable. Desktops choose highlights
/// for larger things than a fret's number.
QColor under(const QColor& text, QColor ground) {
  const QColor away = contrast(text, Qt::black) > contrast(text, Qt::white) ? Qt::black : Qt::white;
  while (contrast(text, ground) < kReadable) ground = mixed(ground, away, 0.1);
  return ground;
}

}  // namespace

Shades::Shades(const QPalette& palette)
    : base(palette.color(QPalette::Base)),
      text(palette.color(QPalette::Text)),
      faintText(mixed(base, text, 0.75)),
      line(mixed(base, text, 0.55)),
      grid(mixed(base, text, 0.14)),
      accent(under(palette.color(QPalette::HighlightedText), palette.color(QPalette::Highlight))),
      onAccent(palette.color(QPalette::HighlightedText)),
      mark(mixed(accent, text, 0.35)),
      quiet(mixed(base, mark, 0.6)),
      ruler(mixed(base, text, 0.06)),
      loop(mixed(base, accent, 0.14)),
      chosen(mixed(base, accent, 0.3)),
      doubt(mixed(base, palette.color(QPalette::LinkVisited), 0.09)) {}

QPalette blackOnWhite() {
  QPalette palette;
  palette.setColor(QPalette::Base, Qt::white);
  palette.setColor(QPalette::Text, Qt::black);
  palette.setColor(QPalette::Highlight, Qt::black);
  palette.setColor(QPalette::HighlightedText, Qt::white);
  return palette;
}

QColor mixed(const QColor& first, const QColor& second, double share) {
  const auto mix = [share](float a, float b) {
    return static_cast<float>(a + (b - a) * static_cast<float>(share));
  };
  return QColor::fromRgbF(mix(first.redF(), second.redF()), mix(first.greenF(), second.greenF()),
                          mix(first.blueF(), second.blueF()));
}

double contrast(const QColor& first, const QColor& second) {
  const auto [darker, lighter] = std::minmax({luminance(first), luminance(second)});
  return (lighter + 0.05) / (darker + 0.05);
}

}  // namespace korvel::ui
