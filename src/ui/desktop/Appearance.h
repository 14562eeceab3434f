// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

namespace korvel::ui {

/// Whose colours the window has: the desktop's, or always light or dark ones.
enum class Theme { system, light, dark };

/// Gives the application the colours of a theme. `system` are those of the desktop; where Qt knows
/// of light ones only although the desktop wants dark ones, as it says by its portal, our own.
void applyTheme(Theme theme, bool desktopIsDark = false);

/// Loads the texts of a language, such as "de"; an empty one is the desktop's. English where there
/// are none. For windows that are made from now on.
void applyLanguage(const QString& language);
/// Loads the texts of the first of these languages that there are any of.
void applyLanguages(const QStringList& languages);

}  // namespace korvel::ui
