// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `easy`: makes an easy version of a song and prints its title as ALBUM/TITLE; the log has the
/// fret of the capo where one is wanted.
void addEasySong(Command& tool);

}  // namespace korvel::cli
