// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <vector>

#include "fingering/Note.h"
#include "rhythm/Reading.h"
#include "rhythm/beats/Onset.h"
#include "rhythm/judging/ReadingSearch.h"

namespace korvel::rhythm {

/// Writes the notes of a recording down as a reading has them.
class ReadingWriter {
 public:
  /// One onset at least; the track has a beat before the first one and one after the last one. All
  /// are read as long as the writer lives.
  ReadingWriter(std::span<const fingering::Note> notes, std::span<const Onset> onsets,
                const BeatTrack& track);

  /// The shortest value is 8 or 16.
  Reading write(const Candidate& candidate, int finest);

 private:
  void writeEvents(Reading& reading, std::span<const int> ticks) const;
  void writeSwing(Reading& reading) const;
  void crop(Reading& reading, const Bars& bars) const;

  std::span<const fingering::Note> m_notes;
  std::span<const Onset> m_onsets;
  BeatTrack m_track;
};

}  // namespace korvel::rhythm
