// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>
#include <filesystem>

#include "ui/page/PageSheet.h"

class QPagedPaintDevice;

namespace korvel::ui {

/// Writes a page of chords onto the papers of a printer or a PDF writer, in black on white and as
/// large as it reads well, with the title and page numbers at the foot. False when the device
/// cannot be painted on.
bool printPage(const SongPage& page, const QFont& font, PageSheet::Parts parts,
               QPagedPaintDevice& device);

/// The same into a PDF file, which appears whole or not at all. Throws platform::FileError.
void savePagePdf(const SongPage& page, const QFont& font, PageSheet::Parts parts,
                 const std::filesystem::path& file);

}  // namespace korvel::ui
