// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/desktop/Synthesizers.h"

#include "playback/GuitarSynthesizer.h"
#include "ui/desktop/Preferences.h"

namespace korvel::ui {

std::optional<std::filesystem::path> chosenSoundFont() {
  const QString file = Preferences().soundFont();
  if (file.isEmpty()) return std::nullopt;
  return file.toStdString();
}

std::unique_ptr<platform::Synthesizer> newSynthesizer() {
  return guitarSynthesizer(chosenSoundFont());
}

}  // namespace korvel::ui
