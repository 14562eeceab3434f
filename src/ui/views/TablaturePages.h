// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>

#include "tab/paper/PrintedSong.h"
#include "ui/paper/PaperWork.h"

namespace korvel::ui {

/// A tablature for paper, which is torn between systems. Room for its grips is made. The font has
/// to be monospaced; it is made smaller where the widest row or the largest system would not fit.
PaperWork tablatureWork(const PrintedTablature& tablature, const QString& title, const QFont& font);

}  // namespace korvel::ui
