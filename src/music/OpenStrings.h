// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>

#include "music/Neck.h"
#include "music/Pitch.h"

namespace korvel {

/// The MIDI number of the absolute note 0, the C of 65.41 Hz.
inline constexpr int kMidiOfLargeTone0 = 36;

/// What the open strings of a guitar sound: finds the note of a place on the neck and the place of
/// a note. Notes are absolute ones, counted in half tones from the C of 65.41 Hz; those of a guitar
/// that is tuned very low are negative. Strings are 0..5; std::out_of_range for any other.
class OpenStrings {
 public:
  /// Those of standard tuning.
  OpenStrings() = default;
  explicit OpenStrings(const OpenPitches& pitches) : m_pitches(pitches) {}

  /// MIDI numbers of the open strings.
  const OpenPitches& pitches() const { return m_pitches; }

  /// The note of a string at a fret.
  int note(int string, int fret = 0) const {
    return addNotes(m_pitches.at(static_cast<std::size_t>(string)) - kMidiOfLargeTone0, fret);
  }
  /// The fret that a string needs for a note; none that there is, where it is below 0.
  int fret(int string, int note) const { return addNotes(note, -this->note(string)); }
  int lowestNote() const { return std::ranges::min(m_pitches) - kMidiOfLargeTone0; }

 private:
  OpenPitches m_pitches = kStandardPitches;
};

}  // namespace korvel
