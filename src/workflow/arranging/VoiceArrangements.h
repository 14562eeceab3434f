// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace korvel {

class QBSong;

// Arrangements: each a new song of the same album under the title that is given, with its tablature
// drawn. std::out_of_range when there are no chords to draw, and the new song stays then.

/// Melody, bass and so many of the longest sounding tones between them.
QBSong* extractMiddleVoices(QBSong& song, int count, const std::string& title);

/// The fingerings seen at least so often, under the source's title with "(voic)" behind, which is
/// not made free. Those of a song on beats have a bar each, and no recording.
QBSong* extractVoicings(QBSong& song, int minimum);

}  // namespace korvel
