// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>

#include "chords/Chord.h"

namespace korvel::chords {

/// All numbers of the search that were tuned together.
struct SearchWeights {
  // What sounds.
  float perFit = 10;            ///< Of a whole agreement of a beat with a chord.
  float bass = 0.9F;            ///< Of the bass in comparison with the treble.
  float bassOnBarLine = 1.7F;   ///< Likewise on the first beat of a bar.
  float thirdPartials = 0.15F;  ///< Of a tone in the treble, what passes for its fifth
  float fifthPartials = 0.3F;   ///< and for its major third.
  float third = 0.7F, fifth = 0.75F, seventh = 1.1F;  ///< In the treble; the root is 1.
  float bassThird = 0.4F, bassFifth = 0.5F;
  /// By kind, in agreement.
  std::array<float, kSearchedKinds> costs{0, 0, -0.02F, -0.02F, -0.03F, 0.09F, 0.12F, 0.144F};
  // The notes that were heard.
  float notes = 1.1F;
  std::array<float, kSearchedKinds> noteCosts{0, 0, 0.25F, 0.25F, 0.3F, 0.6F, 0.5F, 0.6F};
  // Passages that come again.
  float repeatFrom = 0.55F;   ///< So alike they may be the same,
  float repeatSurely = 0.9F;  ///< and so alike they are.
  float repeatGap = 1.2F;     ///< By which beats contradict each other.
  float repeatMean = 0.8F;    ///< 1 for a mean of them, 0 for a sum.
  // No chord.
  float none = 0.6F;         ///< As an agreement; more where
  float noneOfDrums = 0.4F;  ///< hardly anything but drums sounds: when their share of the power
  float someDrums = 0.45F, mostlyDrums = 0.6F;  ///< goes from the one to the other.
  float noneOfMusic = 0.4F;              ///< In place of `none` in a recording whose chords are as
  float noMusic = 0.14F, music = 0.18F;  ///< probable as music's.
  /// Chords that are less probable than that, on average over all the time, are made up: most drums
  /// and speech stay below, music reaches .2 and more.
  float leastSure = 0.12F;
  // What follows what.
  float change = 13;
  float changeOnBarLine = 5;
  float foreign = 2.2F;   ///< A chord that the key lacks, each beat,
  float entry = 3;        ///< and where it begins.
  float borrowed = 0.4F;  ///< Of both, for one that is often borrowed.
  float keyChange = 10;
  float blues = 1;  ///< The price of a blues, each beat.
  // The key of the whole: shares of all its time.
  float keyBorrowed = 0.4F;  ///< A borrowed chord, in comparison with one of the key.
  float keyTonic = 0.3F;
  float keyFirst = 0.1F, keyLast = 0.05F;
  float keyBlues = 0.15F;
  /// Beats are not independent witnesses: probabilities count this share of their scores.
  float trust = 0.35F;
};

}  // namespace korvel::chords
