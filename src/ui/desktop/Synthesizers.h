// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <memory>
#include <optional>

#include "platform/midi/Synthesizer.h"

namespace korvel::ui {

/// The user's own, if the settings name one.
std::optional<std::filesystem::path> chosenSoundFont();

/// A guitar, from the SoundFont of the settings or one that the system has. Throws
/// platform::SoundFontError.
std::unique_ptr<platform::Synthesizer> newSynthesizer();

}  // namespace korvel::ui
