// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel {
class QBSong;
}

namespace korvel::ui {

// Which song the window showed last, in the preferences from one start to the next.

/// Of no song, or one in no album, nothing is known at the next start.
void rememberLastSong(const QBSong* song);
/// Null where none was remembered, or it is gone.
QBSong* lastSong();

}  // namespace korvel::ui
