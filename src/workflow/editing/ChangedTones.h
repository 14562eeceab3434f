// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel {

class QBChord;

// What a chord loses, and what is found anew, once it has other tones.

/// Patterns were chosen for the tones that it had; one of the right hand that still fits stays.
void dropPatterns(QBChord& chord);
/// Of a song on beats: its patterns, and the layers of its tones. Its name is that of a passage.
void regroup(QBChord& chord);
/// Of a song of slices: all of that, and what it is called.
void readAnew(QBChord& chord);

}  // namespace korvel
