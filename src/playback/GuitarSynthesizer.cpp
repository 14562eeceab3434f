// SPDX-License-Identifier: GPL-3.0-or-later
#include "playback/GuitarSynthesizer.h"

#include <vector>

#include "platform/midi/FluidSynthesizer.h"
#include "platform/midi/SoundFonts.h"
#include "playback/QBMIDIPlayer.h"

namespace korvel {

std::unique_ptr<platform::Synthesizer> guitarSynthesizer(
    const std::optional<std::filesystem::path>& soundFont) {
  const platform::SoundFonts fonts(platform::SoundFonts::Folders::ofMachine());
  const std::vector programs{QBMIDIPlayer::kProgram};
  return std::make_unique<platform::FluidSynthesizer>(fonts.find(soundFont, QBMIDIPlayer::kProgram),
                                                      programs);
}

}  // namespace korvel
