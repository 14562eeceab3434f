// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `chords`: hears a recording and prints its chords in bars (`ChordChart.h`). Stores nothing.
void addChordsOfFile(Command& tool);

}  // namespace korvel::cli
