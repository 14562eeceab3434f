// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::test {

/// The one that scripts/setup installs; others of the machine sound different.
inline constexpr const char* kSoundFont = "/usr/share/sounds/sf2/TimGM6mb.sf2";

}  // namespace korvel::test
