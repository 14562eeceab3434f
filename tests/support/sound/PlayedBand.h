// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace korvel::test {

/// Mono, 44100 samples a second.
using BandSound = std::vector<float>;

constexpr double kSecondsOfBandBeat = 0.5;

/// Adds a tone with partials that is struck and dies away within a half second. number: MIDI.
void addTone(BandSound& sound, double from, int number, double loud);
/// Adds a drum: noise that dies away.
void addDrum(BandSound& sound, double from, unsigned seed);

/// What a band plays: notes by MIDI numbers, one for each beat, 0 for none, and on each beat a soft
/// major chord about middle C whose root the bass has, or had last, with a drum.
struct BandScore {
  std::vector<int> melody;
  std::vector<int> bass;
};
BandSound playedBand(const BandScore& score);

/// As samples of a file.
std::vector<std::int16_t> samplesOf(const BandSound& sound);

}  // namespace korvel::test
