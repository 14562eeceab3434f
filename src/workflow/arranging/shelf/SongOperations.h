// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

namespace korvel {

class QBSong;

// Arrangements: each a new song of the same album under a free derived title, with its tablature
// drawn. std::out_of_range when there are no chords to draw, and the new song stays then.

// What a row in a table of commands does, to the letter.
QBSong* toMelody(QBSong& song);
QBSong* toBrass(QBSong& song);
QBSong* toMelodyBrass(QBSong& song);
QBSong* removeMelodyBrass(QBSong& song);
QBSong* removeBrass(QBSong& song);
QBSong* extractPlectrumLead(QBSong& song);
QBSong* extractPlectrumSecond(QBSong& song);
QBSong* extractPlectrumThird(QBSong& song);
QBSong* pushDownStrings(QBSong& song);
QBSong* toLeftHand(QBSong& song);
/// The chords of the source keep the right-hand patterns that this reads of them.
QBSong* toRightHand(QBSong& song);
QBSong* findBestFingering(QBSong& song);
QBSong* removeNonChordTones(QBSong& song);

// For any number, of which the rows have some. Voices and loudest tones count from the highest and
// the loudest; steps are half tones, and tones that fit no string are dropped.
QBSong* applyLoudest(QBSong& song, int count);
QBSong* toVoice(QBSong& song, int voice);
QBSong* removeVoice(QBSong& song, int voice);
/// Melody, bass and so many of the longest sounding tones between them.
QBSong* extractMiddleVoices(QBSong& song, int count);
/// Indexes of tones in the harmony: 3 the seventh, 4 the ninth, 5 the eleventh.
QBSong* removeOptions(QBSong& song, std::vector<int> options);
QBSong* transformUp(QBSong& song, int steps);
QBSong* transformDown(QBSong& song, int steps);

// Without a row.
QBSong* toLeftRightHand(QBSong& song);
QBSong* toRightLeftHand(QBSong& song);
/// threshold: share of the loudest tone's amplitude.
QBSong* removeSilent(QBSong& song, float threshold);

}  // namespace korvel
