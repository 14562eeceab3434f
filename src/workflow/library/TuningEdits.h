// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "analysis/FoundTuning.h"
#include "music/Neck.h"

namespace korvel {

class QBTuning;

/// The tunings that a new one can begin as.
enum class KnownTuning { standard, dropD, openG, openD, dadgad, eFlat, dStandard, openE, dropC };

/// Its name, such as "Drop D".
const char* nameOf(KnownTuning tuning);
/// All of them, in the order in which users choose.
std::span<const KnownTuning> knownTunings();

/// The open strings of each.
std::vector<OpenPitches> pitchesOfKnownTunings();
/// What they are called, or else their notes.
std::string nameOfTuning(const OpenPitches& pitches);
/// The same, and its A where that lies far off: "Standard, A = 425 Hz".
std::string nameOfTuning(const FoundTuning& found);

/// The one of these open strings; none when guitarists have no name for them.
std::optional<KnownTuning> knownTuningOf(const OpenPitches& pitches);

/// The notes of the open strings with octaves, the lowest string first: "E2 A2 D3 G3 B3 E4".
std::string notesOf(QBTuning& tuning);

// What a user does to tunings. As LibraryEdits.h has it: saved, logged, and EditRefused when it is
// not possible.

/// The tuning that new songs get.
void selectTuning(QBTuning& tuning);
void renameTuning(QBTuning& tuning, const std::string& name);
/// Under that name, or a free one after what it begins as; the last of the tunings.
QBTuning* newTuning(KnownTuning from, const std::optional<std::string>& name = std::nullopt);
/// With these strings, which are refused as by editTuning.
QBTuning* newTuning(const std::string& name, const OpenPitches& pitches);
/// The lowest and the highest pitch of an open string.
struct PitchRange {
  int lowest;
  int highest;
};
PitchRange pitchRangeOf(int string);
/// Takes the tuning's place with other strings, and answers what is there now. Strings of the same
/// pitch keep their frequency. Refused while songs or instruments count on the tuning, and unless
/// every string is in its range and higher than the one below.
QBTuning* editTuning(QBTuning& tuning, const OpenPitches& pitches);
/// Refused while songs or instruments count on it, and for the only one. After the selected tuning
/// the first one is selected.
void deleteTuning(QBTuning& tuning);

}  // namespace korvel
