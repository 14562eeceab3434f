// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QPalette>

namespace korvel::ui {

/// The colours of the views, all made of the palette's, so that they follow a light or dark theme.
/// None is the only sign of what it stands for.
struct Shades {
  explicit Shades(const QPalette& palette);

  QColor base;
  QColor text;
  QColor faintText;  ///< Still readable on the base.
  QColor line;       ///< Strings, bars and note values.
  QColor grid;       ///< What only helps the eye.
  QColor accent;     ///< What is filled, such as the cursor.
  QColor onAccent;   ///< Text on it.
  QColor mark;       ///< Frames on the base, and the loudest tones.
  QColor quiet;      ///< The faintest tones.
  QColor ruler;      ///< Ground of the row that sets the loop.
  QColor loop;       ///< Ground of the loop.
  QColor chosen;     ///< Ground of what is selected.
  QColor doubt;      ///< Ground of what may be wrong.
};

/// For paper.
QPalette blackOnWhite();

/// So much of the second colour in the first, 0 to 1.
QColor mixed(const QColor& first, const QColor& second, double share);

/// From 1 to 21, as the Web Content Accessibility Guidelines have it: text needs 4.5, what else
/// must be seen 3.
double contrast(const QColor& first, const QColor& second);

}  // namespace korvel::ui
