// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace korvel::test {

/// Tones that start together: MIDI numbers, struck once and left to ring.
struct Strum {
  std::vector<int> notes;
  double seconds;
};

/// Decaying harmonic tones at 44.1 kHz, mono, loud enough to be heard by the detection.
std::vector<std::int16_t> play(const std::vector<Strum>& strums);

/// MIDI numbers of a fingering such as "x02210", low E first.
std::vector<int> notesOf(const std::string& shape);

void writeWav(const std::string& file, const std::vector<std::int16_t>& samples, int rate = 44100,
              int channels = 1);

/// The same on both channels.
std::vector<std::int16_t> stereo(const std::vector<std::int16_t>& samples);

/// Notes of a second and a half, each after a silence of half a second.
std::vector<std::int16_t> separateNotes(const std::vector<int>& notes);

/// A few chords of two seconds each.
std::vector<std::int16_t> fewChords();

}  // namespace korvel::test
