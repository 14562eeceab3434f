// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <set>
#include <vector>

#include "export/score/NoteValues.h"

namespace korvel {

/// A stretch of a bar that is written as three in the time of two; in units from the bar line.
struct Triplet {
  int from;
  int to;

  /// The sign that it has three of.
  const char* type() const;
};

/// Where a voice of a bar needs triplets, ascending: of quarters in half a bar, in a beat, or in a
/// part of one. cuts: where its events begin and end. What lies outside of them lies on
/// thirty-seconds.
std::vector<Triplet> tripletsOf(const Meter& meter, const std::set<int>& cuts);

/// The longest sign of triplets that may begin at a place. place: from where the triplet begins.
const NoteValue& longestInTriplet(int place, int available);

}  // namespace korvel
