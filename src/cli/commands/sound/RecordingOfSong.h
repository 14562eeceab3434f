// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `recording`: prints where the recording of a song is, says where it is now, and keeps a copy of
/// it beside the store.
void addRecordingOfSong(Command& tool);

}  // namespace korvel::cli
