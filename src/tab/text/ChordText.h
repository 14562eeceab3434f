// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace korvel {

class QBChord;
class QBMeasure;
class QBTabMatrix;

// A chord on the grid of a tablature. Silent chords take no room.

/// The column of a tablature that holds the chord alone.
std::string toString(QBChord& chord);
/// A fret as it stands on a string, two columns wide: "-7" or "12".
std::string fretText(int fret);
/// Writes the position below the strings.
void addPosition(const QBChord& chord, QBTabMatrix& matrix);
/// Writes the name above the name row and moves the cursor behind it.
void addAsChord(const QBChord& chord, QBTabMatrix& matrix);
/// Writes the name above the strings; the cursor stays.
void addAsChord2(const QBChord& chord, QBTabMatrix& matrix);
/// Columns that the chord takes, with the names that it has behind a capo; a flag of 1 or more
/// marks the start of a group.
int outputLength(const QBChord& chord, int flag, int capo = 0);
/// Draws the chord at the cursor, in a new system when it would reach the width.
void addToTabulatureWithLineBreak(QBChord& chord, QBTabMatrix& matrix, const QBChord* previous,
                                  int flag, int width);
/// The same with the beat ruler below, from the measure's counter on, which it moves.
void addToTabulatureWithMetric(QBChord& chord, QBTabMatrix& matrix, const QBChord* previous,
                               int groupSize, int width, QBMeasure& measure);

}  // namespace korvel
