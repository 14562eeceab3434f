// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/desktop/SoundFileNames.h"

#include <QCoreApplication>

namespace korvel::ui {

QStringList soundFilePatterns() {
  return {"*.wav", "*.mp3",  "*.m4a", "*.aac", "*.ogg", "*.oga", "*.opus", "*.flac",
          "*.aif", "*.aiff", "*.wma", "*.mp4", "*.mkv", "*.mov", "*.webm"};
}

QString soundFileFilter() {
  return QCoreApplication::translate("SoundFiles", "Sound and video files (%1)")
             .arg(soundFilePatterns().join(' ')) +
         ";;" + QCoreApplication::translate("SoundFiles", "All files (*)");
}

}  // namespace korvel::ui
