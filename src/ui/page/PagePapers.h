// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>

#include "ui/page/PageSheet.h"
#include "ui/paper/PaperWork.h"

namespace korvel::ui {

/// A page of chords for paper, in letters as large as they read well.
PaperWork pageWork(const SongPage& page, const QFont& font, PageSheet::Parts parts);

}  // namespace korvel::ui
