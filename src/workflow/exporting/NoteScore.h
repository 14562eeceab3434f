// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <string>

#include "export/MidiFile.h"
#include "export/score/BeatSheet.h"
#include "export/score/Score.h"
#include "fingering/Note.h"
#include "music/Neck.h"
#include "rhythm/Reading.h"

namespace korvel {

struct WrittenChord;

/// Notes that were heard in a recording and how their rhythm was read, on their way into the
/// formats of others.
class NoteScore {
 public:
  /// The reading is of these notes, whose chords' pitch classes are told; both must outlive this.
  /// open: what the strings sound.
  NoteScore(std::span<const fingering::Note> notes, const rhythm::Reading& reading,
            const OpenPitches& open);

  /// What a song on beats that is made of the notes is written as.
  Score score(const std::string& title) const;
  MidiSequence midi(const std::string& title) const;
  /// All notes at their times, to a few hundredths of a millisecond, as loud as they were; beats
  /// and bars are those of the reading. What lies before the first beat is one of its own.
  MidiSequence heardMidi(const std::string& title) const;

 private:
  Score head(const std::string& title) const;
  BeatSheet sheet() const;
  BeatSheet::Chord sheetChordOf(const WrittenChord& written) const;
  double quartersAMinute() const;
  void addBeats(MidiSequence& sequence) const;

  std::span<const fingering::Note> m_notes;
  const rhythm::Reading& m_reading;
  OpenPitches m_open;
  Meter m_meter;
  int m_unitsOfTick;
};

}  // namespace korvel
