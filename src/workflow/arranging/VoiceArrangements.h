// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace korvel {

class QBSong;

// Arrangements: each a new song of the same album under a free derived title, or under the title
// that is given, with its tablature drawn. std::out_of_range when there are no chords to draw, and
// the new song stays then. Voices and loudest tones count from the highest and the
// loudest.

QBSong* applyLoudest(QBSong& song, int count);
/// threshold: share of the loudest tone's amplitude.
QBSong* removeSilent(QBSong& song, float threshold);
QBSong* toVoice(QBSong& song, int voice);
QBSong* removeVoice(QBSong& song, int voice);
QBSong* toMelody(QBSong& song);
QBSong* toBrass(QBSong& song);
QBSong* toMelodyBrass(QBSong& song);
QBSong* removeMelodyBrass(QBSong& song);
QBSong* removeBrass(QBSong& song);

/// Melody, bass and so many of the longest sounding tones between them.
QBSong* extractMiddleVoices(QBSong& song, int count);
QBSong* extractMiddleVoices(QBSong& song, int count, const std::string& title);

/// The fingerings seen at least so often; its title, with "(voic)" behind, is not made free.
QBSong* extractVoicings(QBSong& song, int minimum);

}  // namespace korvel
