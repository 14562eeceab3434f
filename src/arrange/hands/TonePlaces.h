// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <vector>

namespace korvel {

class QBChord;

/// Where on the neck a tone is played.
struct TonePlace {
  int string = 0;
  int fret = 0;
};

/// A place for each of several tones; none for one that is not played.
using TonePlaces = std::vector<std::optional<TonePlace>>;

/// Moves the tones of a chord, in the order of `tonesOf`, each to its place; one without a place is
/// deleted. Whatever else they carry stays. The hold's index and span follow.
void moveTones(const QBChord& chord, const TonePlaces& places);

}  // namespace korvel
