// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/Synthesizers.h"

#include "playback/GuitarSynthesizer.h"
#include "ui/Preferences.h"

namespace korvel::ui {

std::unique_ptr<platform::Synthesizer> newSynthesizer() {
  const QString soundFont = Preferences().soundFont();
  std::optional<std::filesystem::path> chosen;
  if (!soundFont.isEmpty()) chosen = soundFont.toStdString();
  return guitarSynthesizer(chosen);
}

}  // namespace korvel::ui
