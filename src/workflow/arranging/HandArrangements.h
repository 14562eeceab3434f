// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace korvel {

class QBSong;

// Arrangements: each a new song of the same album under a free derived title, or under the title
// that is given, with its tablature drawn. std::out_of_range when there are no chords to draw, and
// the new song stays then.

// Lines for one plectrum from the highest voice on, from the second, from the third.
QBSong* extractPlectrumLead(QBSong& song);
QBSong* extractPlectrumSecond(QBSong& song);
QBSong* extractPlectrumThird(QBSong& song);

QBSong* pushDownStrings(QBSong& song);
QBSong* toLeftHand(QBSong& song);
/// The chords of the source keep the right-hand patterns that this reads of them.
QBSong* toRightHand(QBSong& song);
QBSong* toLeftRightHand(QBSong& song);
QBSong* toRightLeftHand(QBSong& song);
QBSong* findBestFingering(QBSong& song);

/// Non-chord tones, bass movement and right hand mended in turn; writes the three stages as text
/// files into the tablature folder.
QBSong* trimToPlayable(QBSong& song);
QBSong* trimToPlayable(QBSong& song, const std::string& title);
/// The same with the files in a new folder beside the user's exports, named after the new song; the
/// log has their paths. Nothing is written where nothing would sound. platform::FileError, and then
/// there is no file, but the songs of the stages stay.
QBSong* trimmedForPlayers(QBSong& song, const std::string& title);

}  // namespace korvel
