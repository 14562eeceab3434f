// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace korvel {
class QBAlbum;
class QBSong;
}  // namespace korvel

namespace korvel::bench {

/// A new song of so many chords of six tones, each with the harmony that explains it best, in the
/// tuning and of the instrument that are selected; drawn, not saved. Grips recur as in a piece that
/// was heard with faults: most chords are like none before.
QBSong* addLongSong(QBAlbum* album, const std::string& title, int chords);

}  // namespace korvel::bench
