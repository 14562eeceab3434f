// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel {

class QBSession;
class QBSong;

// Songs that are not whole: of which the recording was not heard to its end.

/// Puts what was heard of such a song's recording, a drawn song in no album, into its place: an
/// action of its own, which can be undone. When the recording was cut short again and has no more
/// chords than before, or when nothing was heard in it, the song stays. Answers the one that is
/// there now; the other one is gone. Not saved. The session shows it.
QBSong* takePlace(QBSong* heard, QBSong* song, QBSession& session);

/// The user takes the song as it is: an edit.
void takeAsWhole(QBSong& song);

/// Whether its recording is still where it was.
bool canHearAgain(const QBSong& song);

}  // namespace korvel
