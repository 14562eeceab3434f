// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "fingering/Note.h"
#include "rhythm/Reading.h"

namespace korvel {

/// A tone of a written chord.
struct WrittenTone {
  int string = 0;
  int fret = 0;
  double amplitude = 0;
  int ticks = 1;  ///< Its own length, which may be longer than its chord's.
};

/// What is struck together, or nothing: a rest, or the rest of what lasts beyond a bar line.
struct WrittenChord {
  int tick = 0;  ///< Counted from the first bar line.
  int ticks = 1;
  int bar = 0;                     ///< Bars count from 0, a pick-up or the first full one.
  std::int64_t onset = 0;          ///< The sample at which it was struck.
  std::int64_t beatTime = 0;       ///< The sample at which its place comes by the beats.
  std::vector<WrittenTone> tones;  ///< Loudest first, one on each string.
  int span = -1;                   ///< Which of the reading's chords it lies in; -1 for none.
};

/// Notes as the chords of a song on beats: one for each event, as long as it lasts, and between
/// them what fills the bars. Chords follow each other without gaps, none crosses a bar line, and
/// together they fill all bars, but for a pick-up, which begins with its first note. A tone ends
/// where its string is struck again. Notes without a string are left out. The first bar is that of
/// `from`, if that comes before all notes.
std::vector<WrittenChord> writtenChords(std::span<const fingering::Note> notes,
                                        const rhythm::Reading& reading,
                                        std::optional<int> from = {});

/// A time signature as it is written: the denominator is 8 in compound time, otherwise 4.
struct TimeSignature {
  int beat = 4;
  int beattype = 4;

  bool operator==(const TimeSignature&) const = default;
};

TimeSignature signatureOf(const rhythm::Metre& metre);
/// None for a time signature that no reading has, such as 7/8.
std::optional<rhythm::Metre> metreOf(const TimeSignature& signature);

}  // namespace korvel
