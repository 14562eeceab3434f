// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>
#include <QString>
#include <array>
#include <optional>

#include "workflow/exporting/SongFiles.h"

namespace korvel::ui {

/// A format that songs are written in, as users choose it.
struct FormatName {
  SongFormat format;
  const char* name;
  const char* otherEnding;
};

inline constexpr std::array kFormats{
    FormatName{SongFormat::text, QT_TRANSLATE_NOOP("SongFormat", "Text tablature"), ".tab"},
    FormatName{SongFormat::musicXml, QT_TRANSLATE_NOOP("SongFormat", "MusicXML score"), ".xml"},
    FormatName{SongFormat::compressedMusicXml,
               QT_TRANSLATE_NOOP("SongFormat", "Compressed MusicXML score"), ".mxl"},
    FormatName{SongFormat::guitarPro5, QT_TRANSLATE_NOOP("SongFormat", "Guitar Pro 5"), ".gp5"},
    FormatName{SongFormat::guitarPro7, QT_TRANSLATE_NOOP("SongFormat", "Guitar Pro 7 and 8"),
               ".gp"},
    FormatName{SongFormat::alphaTex, QT_TRANSLATE_NOOP("SongFormat", "alphaTex"), ".atex"},
    FormatName{SongFormat::abc, QT_TRANSLATE_NOOP("SongFormat", "ABC notation"), ".abc"},
    FormatName{SongFormat::midi, QT_TRANSLATE_NOOP("SongFormat", "MIDI file"), ".midi"},
};

QString nameOf(const FormatName& format);
/// As file dialogs have it: "MIDI file (*.mid)".
QString filterOf(const FormatName& format);
/// Of an index into kFormats; sound beyond it.
QString endingOf(std::size_t format);
/// The index of a format, by a name that ends on what the file shall be, which it knows better than
/// the dialog's filter. Other dots are the title's own: "01. Prelude".
std::optional<std::size_t> formatNamedBy(const QString& file);

}  // namespace korvel::ui
