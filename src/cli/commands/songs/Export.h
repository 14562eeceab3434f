// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `export`: writes a song to files, as text, score, MIDI or sound.
void addExport(Command& tool);

}  // namespace korvel::cli
