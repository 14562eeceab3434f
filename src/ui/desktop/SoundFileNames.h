// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

namespace korvel::ui {

/// Names that recordings usually have.
QStringList soundFilePatterns();
/// What file dialogs offer where a recording is wanted.
QString soundFileFilter();

}  // namespace korvel::ui
