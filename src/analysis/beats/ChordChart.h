// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

#include "rhythm/Reading.h"

namespace korvel {

/// "Bbm7" or "C/E", spelt as in the key; "-" for no chord.
std::string nameOf(const rhythm::ChordSpan& span, const std::optional<rhythm::Key>& key);

/// The chords of a reading by bars, four a line: "| Am . F . | C . G . |". A dot is a beat on which
/// the chord goes on; a bar begins with its name, and one without chords is "| - |". A name that is
/// not sure has a question mark. A pick-up has its own beats only and leads the first line. Empty
/// when there are no chords.
std::string chordChart(const rhythm::Reading& reading);

}  // namespace korvel
