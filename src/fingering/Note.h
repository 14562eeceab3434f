// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::fingering {

/// One note as it was heard, or is to be played.
struct Note {
  /// Seconds from the start of the recording, end > onset.
  double onset = 0;
  double end = 0;
  /// MIDI number, in equal temperament at the tuning of the recording.
  int pitch = 0;
  /// Where it is played: 0 is the lowest-sounding string; -1 as long as no fingering is chosen.
  int string = -1;
  int fret = -1;
  /// Peak of the activation shortly after the onset, about 0.2 for a faint note and 3 for a loud
  /// one, whatever the level of the recording.
  float strength = 0;
  /// How probable it is that this is a note, 0..1.
  float probability = 1;
  /// The strength as a linear amplitude, a sine at full scale being 1.
  float amplitude = 0;
};

}  // namespace korvel::fingering
