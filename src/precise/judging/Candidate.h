// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <vector>

#include "precise/Scale.h"

namespace korvel::precise {

/// What may be a note: a stretch of frames in which a pitch is active.
struct Candidate {
  /// 0..kPitches - 1.
  std::size_t pitch = 0;
  /// In frames, end > onset; the frame `end` no longer belongs to it.
  Frame onset = 0;
  Frame end = 0;
  /// The largest activation shortly after the onset.
  float peak = 0;
  /// The flux of its pitch at the onset.
  float flux = 0;
  /// Whether it starts while its pitch still sounds: a candidate before it ends where it starts.
  bool reattack = false;
  double probability = 1;
};

/// By onset, equal onsets by pitch.
void sortByOnset(std::vector<Candidate>& candidates);

/// Removes every candidate beside which six stronger ones sound, a little after its onset: a guitar
/// has six strings. Expects and keeps the order of sortByOnset. Answers what it removed.
std::vector<Candidate> keepSixStrongest(std::vector<Candidate>& candidates);

}  // namespace korvel::precise
