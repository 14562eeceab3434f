// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <string>

#include "export/MidiFile.h"
#include "export/score/BeatMusic.h"
#include "export/score/Score.h"
#include "fingering/Note.h"
#include "music/Neck.h"
#include "rhythm/Reading.h"

namespace korvel {

/// Notes that were heard in a recording and how their rhythm was read, on their way into the
/// formats of others.
class NoteScore {
 public:
  /// The reading is of these notes; both must outlive this.
  NoteScore(std::span<const fingering::Note> notes, const rhythm::Reading& reading);

  /// What a song made of the notes is written as. Of several notes on a string that are struck
  /// together the strongest stays, and those that no string has are left out.
  Score score(const std::string& title, const OpenPitches& open) const;
  /// All notes at their times, to a few hundredths of a millisecond, as loud as they were; beats
  /// and bars are those of the reading. What lies before the first beat is one of its own.
  MidiSequence midi(const std::string& title) const;

 private:
  BeatMusic music() const;
  BeatChord chordOf(const rhythm::Event& event) const;
  double secondsOf(int unit) const;
  double quartersAMinute() const;
  void addBeats(MidiSequence& sequence) const;

  std::span<const fingering::Note> m_notes;
  const rhythm::Reading& m_reading;
  Meter m_meter;
  int m_unitsOfTick;
};

}  // namespace korvel
