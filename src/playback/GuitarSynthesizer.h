// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <memory>
#include <optional>

#include "platform/midi/Synthesizer.h"

namespace korvel {

/// A synthesiser that is ready to play the guitar of songs: with the chosen SoundFont, or with what
/// is found when none was chosen. Throws SoundFontError.
std::unique_ptr<platform::Synthesizer> guitarSynthesizer(
    const std::optional<std::filesystem::path>& soundFont);

}  // namespace korvel
