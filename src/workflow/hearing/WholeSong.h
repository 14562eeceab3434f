// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace korvel {

class QBSession;
class QBSong;

// Songs whose recording is heard again: those that are not whole, of which it was not heard to its
// end, and others because their user wants it.

/// Puts what was heard of a song's recording, a drawn song in no album, into its place: an
/// action of its own, which can be undone. What the user changed of the song's chords stays, and so
/// does what was decided of its notes. When the recording was cut short again and has no more
/// chords than before, or when nothing was heard in it, the song stays. Answers the one that is
/// there now; the other one is gone. Not saved. The session shows it.
QBSong* takePlace(QBSong* heard, QBSong* song, QBSession& session);

/// The user takes the song as it is: an edit.
void takeAsWhole(QBSong& song);

/// The file that a song was heard in, its copy where that is another one by now, or the file that
/// it is to be heard in; "" when it is not known.
std::string recordingFileOf(const QBSong& song);
/// Whether a song is not whole, and its recording is still where it was.
bool canHearAgain(const QBSong& song);
/// The same of a whole song; its file is not another one as far as that is known.
bool canHearAnew(const QBSong& song);

}  // namespace korvel
