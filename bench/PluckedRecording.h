// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace korvel::bench {

/// Writes a WAV file of plucked notes, a second each.
void writePluckedRecording(const std::string& file, double seconds);

}  // namespace korvel::bench
