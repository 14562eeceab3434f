// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>

#include "precise/ending/EndSurroundings.h"

namespace korvel::precise {

/// What the networks are shown of a frame in which a note may still sound. A level says little: a
/// string that was stopped goes on to ring in the room, and one that rings faintly under others is
/// still heard. So it is how the note and its partials go on before and after the frame, what was
/// struck since the note began, and how the others fare.
class EndInputs {
 public:
  static constexpr std::size_t kCount = 81;
  using Inputs = std::array<float, kCount>;

  /// Note i of the surroundings, which must outlive this.
  EndInputs(const EndSurroundings& around, std::size_t i);

  /// Takes note of what happens up to a frame; to be called for each from the one after the onset
  /// on.
  void pass(Frame frame);
  /// Of the frame that was passed last.
  Inputs inputs() const;

 private:
  /// Of the other notes at a frame.
  struct Others;

  float level(Frame frame) const { return m_around.level(m_note.pitch, frame); }
  float ratioOfLevels(std::size_t pitch, Frame frame, Frame before) const;
  float partials(std::size_t group, Frame frame) const;
  void passStrokes();
  Others others() const;

  float* addLevels(float* next) const;
  float* addStrokes(float* next) const;
  float* addNote(float* next) const;
  float* addCurves(float* next) const;
  float* addOthers(float* next) const;

  const EndSurroundings& m_around;
  const Candidate& m_note;
  PartialShares m_shares;
  Frame m_frame;
  /// The largest level so far, and those of the groups of partials.
  float m_highest = 0;
  std::array<float, kPartialGroups.size()> m_highestPartials{};
  /// The steepest fall so far, and the level before it.
  float m_steepest = 0;
  float m_beforeSteepest = 0;
  /// Notes that were struck since: all, whether one may be on the same string, the strongest, and
  /// when the last was.
  std::size_t m_strokes = 0;
  bool m_nearStroke = false;
  float m_strongest = 0;
  Frame m_lastStroke = 0;
  std::size_t m_firstBeside;
  std::size_t m_next;  ///< The first note that was not struck yet.
};

}  // namespace korvel::precise
