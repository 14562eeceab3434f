// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>

#include "tab/layout/TabLayout.h"
#include "ui/paper/PaperWork.h"

namespace korvel::ui {

/// A tablature for paper, which is torn between systems. The font has to be monospaced; it is made
/// smaller where the widest row or the largest system would not fit.
PaperWork tablatureWork(const TabLayout& layout, const QString& title, const QFont& font);

}  // namespace korvel::ui
