// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/desktop/SoundFileNames.h"

#include <QCoreApplication>

#include "exchange/Formats.h"
#include "ui/desktop/Text.h"
#include "workflow/sheets/ChordSong.h"

namespace korvel::ui {

QStringList soundFilePatterns() {
  return {"*.wav", "*.mp3",  "*.m4a", "*.aac", "*.ogg", "*.oga", "*.opus", "*.flac",
          "*.aif", "*.aiff", "*.wma", "*.mp4", "*.mkv", "*.mov", "*.webm"};
}

QStringList pieceFilePatterns(bool withTexts) {
  QStringList patterns;
  for (const std::string_view ending : exchange::endingsOfPieces())
    if (withTexts || (ending != "txt" && ending != "xml")) patterns.append("*." + toText(ending));
  for (const std::string_view ending : endingsOfChordPro())
    if (withTexts || ending != "pro") patterns.append("*." + toText(ending));
  return patterns;
}

QString soundFileFilter() {
  return QCoreApplication::translate("SoundFiles", "Sound and video files (%1)")
             .arg(soundFilePatterns().join(' ')) +
         ";;" + QCoreApplication::translate("SoundFiles", "All files (*)");
}

QString importFilter() {
  const QStringList pieces = pieceFilePatterns(true);
  return QCoreApplication::translate("SoundFiles", "Recordings, tabs and scores (%1)")
             .arg((soundFilePatterns() + pieces).join(' ')) +
         ";;" +
         QCoreApplication::translate("SoundFiles", "Tabs and scores (%1)").arg(pieces.join(' ')) +
         ";;" + soundFileFilter();
}

}  // namespace korvel::ui
