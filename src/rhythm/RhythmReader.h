// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <span>

#include "fingering/Note.h"
#include "platform/loop/Slices.h"
#include "rhythm/Reading.h"

namespace korvel::rhythm {

class ReadingAttempt;
struct Onset;

/// Reads the rhythm of a recording from its notes. The same notes give the same reading on every
/// machine; time and memory grow with the length of the recording.
///
/// Step until it answers false, which the thread may leave at any time.
class RhythmReader {
 public:
  /// Notes by onset, equal onsets by pitch; they are copied.
  explicit RhythmReader(std::span<const fingering::Note> notes, const Wishes& wishes = {});
  RhythmReader(RhythmReader&&) noexcept;
  RhythmReader& operator=(RhythmReader&&) noexcept;
  ~RhythmReader();

  /// A few hundredths of a second of work; false when all is done.
  bool step();
  /// How much of the work is done, 0..1.
  double progress() const { return m_work.done(); }
  /// To be called once, when all is done.
  Rhythm take();

 private:
  struct Desk;

  static platform::Slices reading(Desk& desk);
  static void write(Desk& desk, const ReadingAttempt& attempt, std::span<const Onset> onsets);

  std::unique_ptr<Desk> m_desk;
  platform::Slices m_work;  ///< Reads what lies on the desk, so that it ends first.
};

/// All at once.
Rhythm rhythmOf(std::span<const fingering::Note> notes, const Wishes& wishes = {});

}  // namespace korvel::rhythm
