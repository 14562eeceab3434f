// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace korvel {

class QBSong;

// Arrangements: each a new song of the same album under a free derived title, or under the title
// that is given, with its tablature drawn. std::out_of_range when there are no chords to draw, and
// the new song stays then.

/// In measures of that metre. The chords keep their lengths; those of a song on beats go on behind
/// bar lines (`bars/OtherMetre.h`).
QBSong* applyMetric(QBSong& song, int beat, int beattype);
/// Tones that ring on become long ones. On beats tones are as long as they were heard already, and
/// what is struck again stays so.
QBSong* toPicking(QBSong& song);
/// Both in turn, long tones first, so that they can be counted. The song of long tones is only a
/// step: it goes, and the title is set, before anybody sees the new song, so that every view has
/// its final title.
QBSong* laidIntoMetre(QBSong& song, int beat, int beattype, const std::string& title);

}  // namespace korvel
