// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "platform/Synthesizer.h"

namespace korvel::ui {

/// A guitar, from the SoundFont of the settings or one that the system has. Throws
/// platform::SoundFontError.
std::unique_ptr<platform::Synthesizer> newSynthesizer();

}  // namespace korvel::ui
