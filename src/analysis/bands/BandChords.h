// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <vector>

#include "chords/BandSound.h"
#include "fingering/Note.h"
#include "rhythm/Reading.h"

namespace korvel {

/// The mean probability of notes; 1 without any.
double surenessOf(std::span<const fingering::Note> notes);

/// Notes, by onset, and among them a note without a string for each clear stroke, so that a rhythm
/// is read from drums, too. What has no string counts for no chord beside what has one.
std::vector<fingering::Note> withStrokes(std::span<const fingering::Note> notes,
                                         std::span<const chords::Stroke> strokes);

/// Moves the bar lines of a reading to where the chords of the sound change, where that is clearly
/// elsewhere; bars of three beats and of four may become each other.
void tellBandBars(const chords::BandSound& sound, std::span<const fingering::Note> notes,
                  rhythm::Reading& reading);

/// Gives a reading the chords and the key that are heard in the sound, with the notes as further
/// evidence.
void tellBandChords(const chords::BandSound& sound, std::span<const fingering::Note> notes,
                    rhythm::Reading& reading);

}  // namespace korvel
