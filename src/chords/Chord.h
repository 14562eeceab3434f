// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace korvel::chords {

/// What a chord is made of. The search tells the first eight apart; what is finer is told of whole
/// spans.
enum class Kind : std::uint8_t {
  major,
  minor,
  seventh,
  minorSeventh,
  majorSeventh,
  suspendedFourth,
  diminished,
  halfDiminished,
  power,
  suspendedSecond,
  augmented,
  diminishedSeventh,
  sixth,
  minorSixth,
  addedNinth,
  ninth,
  minorNinth,
  majorNinth,
  eleventh,
  thirteenth,
  count
};
inline constexpr std::size_t kKinds = static_cast<std::size_t>(Kind::count);
inline constexpr std::size_t kSearchedKinds = 8;

/// What is known of a kind.
struct KindOfChord {
  std::string_view type;   ///< As the chord book calls it, such as "m7".
  std::string_view label;  ///< As annotations of chords call it, such as "min7".
  /// What it is when only the third, the fifth and the seventh are asked for, likewise.
  std::string_view plain;
  unsigned tones;  ///< Above the root, bit n for n semitones.
};
const KindOfChord& of(Kind kind);

/// A chord, or none.
struct Chord {
  int root = -1;  ///< Pitch class, 0..11 with C = 0; -1 for no chord.
  Kind kind = Kind::major;
  int bass = -1;  ///< Pitch class of the bass where that is another than the root, else -1.

  bool isNone() const { return root < 0; }
  /// Pitch classes as bits, without another bass.
  unsigned pitchClasses() const;
  bool operator==(const Chord&) const = default;
};

}  // namespace korvel::chords
