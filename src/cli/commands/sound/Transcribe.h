// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `transcribe`: prints the notes of a recording as JSON, or writes them to files of several
/// formats. Stores nothing, and opens the store only when a tuning is named.
void addTranscribe(Command& tool);

}  // namespace korvel::cli
