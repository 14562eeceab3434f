// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel {

class QBChord;
class QBInstrument;
class QBSpectrum;

// Whether a chord confirms a tone at a fret of a string: it has at least the share `detaillevel` of
// what is known to be heard with the string, weighed by how often it was heard.

/// By what the spectrum has of its string. One without overtones lets every tone pass.
bool filter(const QBInstrument& instrument, QBSpectrum& spectrum, int fret, const QBChord& chord);

/// By the instrument's spectrum of that string, 0..5, 0 the lowest; std::out_of_range where it has
/// none.
bool filterString(QBInstrument& instrument, int string, int fret, const QBChord& chord);

bool filterLowerE(QBInstrument& instrument, int fret, const QBChord& chord);
bool filterA(QBInstrument& instrument, int fret, const QBChord& chord);
bool filterD(QBInstrument& instrument, int fret, const QBChord& chord);
bool filterG(QBInstrument& instrument, int fret, const QBChord& chord);
bool filterB(QBInstrument& instrument, int fret, const QBChord& chord);
bool filterUpperE(QBInstrument& instrument, int fret, const QBChord& chord);

}  // namespace korvel
