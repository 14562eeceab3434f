// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `chords`: hears a recording, of a guitar or a band, and prints its chords in bars
/// (`ChordChart.h`) or as JSON (`ChordsJson.h`). Stores nothing.
void addChordsOfFile(Command& tool);

}  // namespace korvel::cli
