// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::platform {

/// Samples a second of every channel, wherever sound is recorded, heard or played; what files hold
/// at another rate is converted.
inline constexpr int kSampleRate = 44100;

}  // namespace korvel::platform
