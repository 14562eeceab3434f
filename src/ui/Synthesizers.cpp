// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/Synthesizers.h"

#include "platform/FluidSynthesizer.h"
#include "platform/SoundFonts.h"
#include "playback/QBMIDIPlayer.h"
#include "ui/Preferences.h"

namespace korvel::ui {

std::unique_ptr<platform::Synthesizer> newSynthesizer() {
  const QString soundFont = Preferences().soundFont();
  std::optional<std::filesystem::path> chosen;
  if (!soundFont.isEmpty()) chosen = soundFont.toStdString();
  const platform::SoundFonts fonts(platform::SoundFonts::Folders::ofMachine());
  const std::vector programs{QBMIDIPlayer::kProgram};
  return std::make_unique<platform::FluidSynthesizer>(fonts.find(chosen, QBMIDIPlayer::kProgram),
                                                      programs);
}

}  // namespace korvel::ui
