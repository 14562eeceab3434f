// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>

#include "export/score/Score.h"

namespace korvel {

class QBSong;
struct BeatSheet;

/// The meter of the song's first measure; 4/4 when it has none.
Meter meterOf(const QBSong& song);

/// Of a song that has one.
ScoreKey keyOf(const QBSong& song);

/// What a song's score says beside the music: title, instrument, open strings, and the tempo of a
/// song of slices.
Score headOf(const QBSong& song);

/// How many times as fast as it was recorded a song is to be played.
double rateOf(const QBSong& song);

/// Has a score say the fret of a capo, unless a tone lies below that. 0 for none.
void putBehind(int capo, Score& score);

/// A song as a score, without program and date. It follows the song's measures, or the given meter
/// from the first chord to the last; 4/4 when it has none. Silenced tones are left out, and of
/// several on a string the highest stays, as in the tablature.
///
/// A song on beats is written as its ticks say: each tone for its own length, with a pick-up, key,
/// swing, and its tempo where that changes. In one of slices each chord is as long as its duration:
/// in measures the chords follow each other; without them chords that have become empty are rests,
/// but for those that lie within the duration of the chord before them.
Score scoreOf(QBSong& song, const std::optional<Meter>& meter = std::nullopt);
/// The same of the sheet of a song on beats. head: what its score says beside the music.
Score scoreOf(Score head, const BeatSheet& sheet, const std::optional<Meter>& meter = std::nullopt);

}  // namespace korvel
