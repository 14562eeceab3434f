// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel {

class QBSong;
class QBTabMgr;

/// Lays the chords of a song into its measures anew, from the measure of the first chord that
/// changed on: each measure takes as many as fit in, a chord longer than a measure has one for
/// itself. Measures are added at the end, of the same metre, or taken from there. A chord that
/// sounds takes part, and a silent one that is in a measure already. Songs without measures stay
/// so.
void layIntoMeasures(QBTabMgr& db, QBSong& song, int firstChanged);

}  // namespace korvel
