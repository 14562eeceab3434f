// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QWidget;

namespace korvel::ui {

/// Lets screen readers see a `TablatureView` as one line of text that says where the cursor is and
/// what is played there. To be called once or more before the first view is shown.
void installTablatureAccessibility();

/// Tells screen readers that the line has become another.
void announceText(QWidget& view, const QString& before, const QString& now);

}  // namespace korvel::ui
