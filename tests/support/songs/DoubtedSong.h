// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel {
class QBAlbum;
class QBSong;
}  // namespace korvel

namespace korvel::test {

/// Of these pitches a doubted song has, or may have, one note each.
inline constexpr int kFalseNote = 60;
inline constexpr int kMissingNote = 47;

/// A drawn and saved song on beats that was heard: eight bars of grips on each beat, 100 a minute,
/// with a bass note after each second one; between two others a note that was none, on the B string
/// at fret 1, and a B2 that was struck with a grip and not taken. Nothing else is doubted.
QBSong& doubtedSong(QBAlbum& album);

}  // namespace korvel::test
