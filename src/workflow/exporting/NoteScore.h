// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <span>
#include <string>

#include "export/MidiFile.h"
#include "export/score/Score.h"
#include "music/Neck.h"
#include "precise/Analysis.h"
#include "precise/Settings.h"

namespace korvel {

/// Notes that were heard in a recording, by onset, on their way into the formats of others.
class NoteScore {
 public:
  /// tempo: quarters a minute; it is assumed from the notes when not given. The notes must outlive
  /// this.
  NoteScore(std::span<const precise::Note> notes, std::optional<double> tempo);

  double tempo() const { return m_tempo; }
  /// The notes to the nearest sixteenth, in 4/4 from the first one on. Notes that begin within a
  /// twentieth of a second, or in one sixteenth, are one chord; a chord lasts for as long as its
  /// longest note, at most to the next one, and a gap of a sixteenth is closed. Notes that no
  /// string has are left out.
  Score score(const std::string& title, const OpenPitches& open) const;
  /// All notes at their times, to a few hundredths of a millisecond, as loud as they were.
  MidiSequence midi(const std::string& title) const;

 private:
  std::span<const precise::Note> m_notes;
  double m_tempo;
};

}  // namespace korvel
