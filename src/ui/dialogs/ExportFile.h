// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>
#include <string>

class QWidget;

namespace korvel::ui {

/// Asks for the file that something is exported to, beginning in the folder of the last time, which
/// is remembered. A name that has none of the endings gets the first one; other dots are the
/// title's own, as in "01. Prelude". name: the one proposed, without an ending; a title may have
/// any letters. Empty when the user does not want to.
QString chooseExportFile(QWidget* parent, const QString& title, const std::string& name,
                         const QString& filter, const QStringList& endings);

/// Asks when a file of that name is there.
bool mayReplaceFile(QWidget* parent, const QString& file);

}  // namespace korvel::ui
