// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>

#include "precise/Observer.h"
#include "precise/ending/EndSurroundings.h"
#include "precise/judging/Candidate.h"

namespace korvel::precise {

/// Decides when notes end: networks judge each frame, and the note ends where that makes all of its
/// frames most probable.
class NoteEnds {
 public:
  /// notes: those that were taken, in the order of sortByOnset, with the ends that were tracked.
  /// observer: is shown what is decided on, or null. All must outlive this.
  NoteEnds(const EndSurroundings::Seen& seen, std::span<const Candidate> notes, Observer* observer)
      : m_around(seen, notes), m_observer(observer) {}

  /// Where note i ends, up to one and a half seconds after it was tracked to end, but before the
  /// next one of its pitch begins.
  Frame endOf(std::size_t i) const;

 private:
  Frame limitOf(std::size_t i) const;

  EndSurroundings m_around;
  Observer* m_observer;
};

}  // namespace korvel::precise
