// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel {

class QBChord;
class QBTone;

// A chord of a song on beats and its tones while lengths change.

bool isToneless(const QBChord& chord);
/// Its own ticks, or those of its chord.
int ticksOfTone(const QBTone& tone, const QBChord& chord);
bool isInCompoundTime(const QBChord& chord);

/// Makes a chord so much longer. Tones that ended with it still do.
void changeTicks(QBChord& chord, int by);
/// Tones are to last as long as their chord is written, which was `before`; those that ring on
/// beyond others still do.
void setToneTicks(QBChord& chord, int before, int ticks);
/// By so many samples, if it has a time.
void moveInTime(QBChord& chord, double samples);

}  // namespace korvel
