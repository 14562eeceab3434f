// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <vector>

#include "rhythm/beats/Onset.h"

namespace korvel::rhythm {

/// Lengths of a beat that are tried, in seconds.
struct BeatLengths {
  double shortest = 0.26;
  double longest = 1.6;

  bool has(double length) const { return length >= shortest && length <= longest; }
};

/// The length of the median beat, in seconds; the track has two beats or more.
double medianBeat(const BeatTrack& track);

/// Which of the beats is next to a time.
std::size_t nearestBeat(const BeatTrack& track, double time);

/// Lets beats go on evenly until they start before `from` and end after `to`.
void extend(BeatTrack& track, double from, double to);

/// Other tracks that have the notes of one on places of theirs: beats of a quarter to four times
/// its length, begun at each quarter and each third of its beats. All cover `from` to `to`.
std::vector<BeatTrack> multiplesOf(const BeatTrack& track, const BeatLengths& lengths, double from,
                                   double to);

/// Whether two tracks are one for a listener: nearly the same tempo and phase.
bool areAlike(const BeatTrack& a, const BeatTrack& b);

}  // namespace korvel::rhythm
