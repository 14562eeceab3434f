// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

/// Prints the names of the outputs and inputs of sound. Throws AudioError when there is no sound
/// server.
void listDevices();

}  // namespace korvel::cli
