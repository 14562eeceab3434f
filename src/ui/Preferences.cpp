// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/Preferences.h"

#include <QDir>

namespace korvel::ui {

QString Preferences::folder(const QString& key) const {
  return m_store.value(key, QDir::homePath()).toString();
}

}  // namespace korvel::ui
