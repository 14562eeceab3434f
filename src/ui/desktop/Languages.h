// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

namespace korvel::ui {

/// Loads the texts of a language, such as "de"; an empty one is the desktop's. English where there
/// are none. For windows that are made from now on.
void applyLanguage(const QString& language);
/// Loads the texts of the first of these languages that there are any of.
void applyLanguages(const QStringList& languages);

}  // namespace korvel::ui
