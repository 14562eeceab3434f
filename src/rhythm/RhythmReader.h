// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <vector>

#include "fingering/Note.h"
#include "platform/loop/Slices.h"
#include "rhythm/Reading.h"

namespace korvel::rhythm {

/// Reads the rhythm of a recording from its notes. The same notes give the same reading on every
/// machine; time and memory grow with the length of the recording.
///
/// Step until it answers false, which the thread may leave at any time.
class RhythmReader {
 public:
  /// Notes by onset, equal onsets by pitch; they are copied.
  explicit RhythmReader(std::span<const fingering::Note> notes, const Wishes& wishes = {});

  /// A few hundredths of a second of work; false when all is done.
  bool step();
  /// How much of the work is done, 0..1.
  double progress() const { return m_progress; }
  /// To be called once, when all is done.
  Rhythm take() { return std::move(m_result); }

 private:
  std::vector<fingering::Note> m_notes;
  Wishes m_wishes;
  Rhythm m_result;
  double m_progress = 0;
  platform::Slices m_work;
};

/// All at once.
Rhythm rhythmOf(std::span<const fingering::Note> notes, const Wishes& wishes = {});

}  // namespace korvel::rhythm
