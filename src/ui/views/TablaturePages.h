// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>
#include <QString>
#include <filesystem>

class QPagedPaintDevice;

namespace korvel {
class QBSong;
}  // namespace korvel

namespace korvel::ui {

/// Writes the tablature of a song onto the pages of a printer or a PDF writer, in black on white,
/// broken between systems and without marks of the loop, with the title and page numbers at the
/// foot. The font is made smaller where the widest row or the largest system would not fit. False
/// when the device cannot be painted on.
bool printTablature(QBSong& song, const QFont& font, QPagedPaintDevice& device);

/// The same into a PDF file, which appears whole or not at all. Throws platform::FileError.
void savePdf(QBSong& song, const QFont& font, const std::filesystem::path& file);

}  // namespace korvel::ui
