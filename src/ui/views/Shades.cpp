// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/views/Shades.h"

namespace korvel::ui {

Shades::Shades(const QPalette& palette)
    : base(palette.color(QPalette::Base)),
      text(palette.color(QPalette::Text)),
      faintText(mixed(base, text, 0.7)),
      line(mixed(base, text, 0.5)),
      grid(mixed(base, text, 0.14)),
      accent(palette.color(QPalette::Highlight)),
      onAccent(palette.color(QPalette::HighlightedText)),
      loop(mixed(base, accent, 0.14)),
      chosen(mixed(base, accent, 0.35)) {}

QColor mixed(const QColor& first, const QColor& second, double share) {
  const auto mix = [share](float a, float b) {
    return static_cast<float>(a + (b - a) * static_cast<float>(share));
  };
  return QColor::fromRgbF(mix(first.redF(), second.redF()), mix(first.greenF(), second.greenF()),
                          mix(first.blueF(), second.blueF()));
}

}  // namespace korvel::ui
