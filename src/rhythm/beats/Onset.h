// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "rhythm/beats/BeatPlaces.h"

namespace korvel::rhythm {

/// What may mark an onset as one on a beat, each about -1..1 against the onsets around it.
enum class Cue : std::size_t {
  loud,    ///< Its strength.
  long_,   ///< The time to the next onset.
  low,     ///< How deep its lowest note is.
  stroke,  ///< Positive for a stroke downwards, negative for one upwards.
  held,    ///< How long the longest of its notes sounds.
  fresh,   ///< How many of its pitch classes were not struck shortly before.
  again,   ///< Its highest note is that of the onset before.
  count
};
inline constexpr std::size_t kCues = static_cast<std::size_t>(Cue::count);

/// One value for each cue.
class Cues {
 public:
  double& operator[](Cue cue) { return m_values[static_cast<std::size_t>(cue)]; }
  const std::array<double, kCues>& values() const { return m_values; }

 private:
  std::array<double, kCues> m_values{};
};

/// Notes that start together: a tone, a chord, a strum.
struct Onset {
  double time = 0;   ///< Where its beat is felt, in seconds; a little after the first note.
  double first = 0;  ///< When the first of its notes starts.
  double strength = 0;
  double weight = 0;  ///< How sure it is that something was struck, 0..1.
  int lowest = 0;     ///< The lowest of its pitches.
  int highest = 0;
  double sounds = 0;          ///< Seconds, of the longest of its notes.
  unsigned pitchClasses = 0;  ///< As bits.
  Cues cues;
  double accent = 0;     ///< How much it is like one on a beat, -1..1.
  double barAccent = 0;  ///< How much it is like one on a bar line, -1..1.
  /// How often it stands at each place of a beat in comparison with others, by its accent.
  std::array<float, kPlaces> favour{};
  std::vector<std::size_t> notes;  ///< Indexes, by onset.
};

/// Times of beats, ascending.
using BeatTrack = std::vector<double>;

}  // namespace korvel::rhythm
