// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/ending/EndInputs.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <cstdlib>

namespace korvel::precise {
namespace {

/// Keep logarithms of nothing in bounds.
constexpr float kSmall = 0.03F;
constexpr float kSmallStroke = 0.02F;
/// How far back and ahead a level is compared, in frames.
constexpr Frame kNear = 4;
constexpr Frame kFar = 14;
/// A string that is stopped falls silent between these frames around a moment.
constexpr Frame kStopBegin = -3;
constexpr Frame kStopEnd = 3;
/// A stroke is one of another note, so long after the note's own; as near as this in semitones it
/// may be on the same string.
constexpr Frame kLaterStroke = 5;
constexpr std::size_t kSameString = 4;
constexpr float kStrokeMemory = 12;
/// What began so many frames before and after a frame begins there; what was struck together with
/// the note began as near to it as this.
constexpr Frame kJustBegan = 6;
constexpr Frame kAboutToBegin = 8;
constexpr Frame kTogether = 4;
/// The tracked end is looked at as far as this.
constexpr Frame kAfter = 86;
/// Where nothing was struck, or nothing lies an octave below.
constexpr float kNoStroke = -3;
constexpr float kNoOctave = -2;

/// Frames around the one in question at which curves are looked at.
constexpr std::array<Frame, 18> kLevels{-43, -30, -20, -14, -10, -7, -5, -3, -1,
                                        1,   3,   5,   7,   10,  14, 20, 30, 43};
constexpr std::array<Frame, 9> kPartialLevels{-20, -14, -7, -3, 0, 3, 7, 14, 20};
constexpr std::array<Frame, 7> kStrokes{-9, -6, -3, 0, 3, 6, 9};
constexpr std::array<Frame, 6> kTotals{-14, -7, -3, 3, 7, 14};

float ratio(float level, float other) { return std::log((level + kSmall) / (other + kSmall)); }

}  // namespace

struct EndInputs::Others {
  /// Those that sounded before: how many, and how far they fall, summed.
  float count = 0;
  float falls = 0;
  /// Of them, those that were struck together with the note: how many, and how far they have
  /// fallen, summed.
  float together = 0;
  float togetherFallen = 0;
  float begun = 0;
};

EndInputs::EndInputs(const EndSurroundings& around, std::size_t i)
    : m_around(around),
      m_note(around.notes()[i]),
      m_shares(around.sharesOf(m_note)),
      m_frame(m_note.onset),
      m_firstBeside(around.firstBeside(i)),
      m_next(i + 1) {}

float EndInputs::ratioOfLevels(std::size_t pitch, Frame frame, Frame before) const {
  return ratio(m_around.level(pitch, frame), m_around.level(pitch, before));
}

float EndInputs::partials(std::size_t group, Frame frame) const {
  return m_around.partials(m_note.pitch, m_shares, kPartialGroups[group], frame);
}

void EndInputs::pass(Frame frame) {
  m_frame = frame;
  const float fallen = ratioOfLevels(m_note.pitch, frame + kStopEnd, frame + kStopBegin);
  if (fallen < m_steepest) {
    m_steepest = fallen;
    m_beforeSteepest = level(frame + kStopBegin);
  }
  m_highest = std::max(m_highest, level(frame));
  for (std::size_t group = 0; group < m_highestPartials.size(); ++group)
    m_highestPartials[group] = std::max(m_highestPartials[group], partials(group, frame));
  passStrokes();
}

void EndInputs::passStrokes() {
  const auto notes = m_around.notes();
  for (; m_next < notes.size() && notes[m_next].onset <= m_frame + 1; ++m_next) {
    const Candidate& other = notes[m_next];
    if (other.onset < m_note.onset + kLaterStroke || other.pitch == m_note.pitch) continue;
    ++m_strokes;
    const std::size_t distance =
        std::max(other.pitch, m_note.pitch) - std::min(other.pitch, m_note.pitch);
    if (distance <= kSameString) m_nearStroke = true;
    m_strongest = std::max(m_strongest, other.peak);
    m_lastStroke = other.onset;
  }
}

/// What the level is, and how it moves.
float* EndInputs::addLevels(float* next) const {
  const std::size_t pitch = m_note.pitch;
  const Frame t = m_frame;
  const float here = level(t);
  *next++ = std::log(here + kSmall);
  *next++ = ratio(here, m_highest);
  *next++ = ratio(here, m_around.loudest(t));
  *next++ = ratioOfLevels(pitch, t, t - kNear);
  *next++ = ratioOfLevels(pitch, t, t - kFar);
  *next++ = ratioOfLevels(pitch, t + kNear, t);
  *next++ = ratioOfLevels(pitch, t + kFar, t);
  *next++ = m_steepest;
  *next++ = m_steepest < 0 ? ratio(here, m_beforeSteepest) : 0;
  return next;
}

/// What was struck since the note, which sounds for some time.
float* EndInputs::addStrokes(float* next) const {
  const bool any = m_strokes > 0;
  const auto since = static_cast<float>(m_frame - m_lastStroke);
  *next++ =
      std::log(static_cast<float>(m_frame - m_note.onset) / static_cast<float>(kFramesPerSecond));
  *next++ = std::log(1 + static_cast<float>(m_strokes));
  *next++ = m_nearStroke ? 1 : 0;
  *next++ = any ? ratio(m_strongest, m_note.peak) : kNoStroke;
  *next++ = any ? std::exp(-since / kStrokeMemory) : 0;
  return next;
}

/// What kind of music it is in, and what speaks for a note there.
float* EndInputs::addNote(float* next) const {
  const std::size_t pitch = m_note.pitch;
  *next++ = std::log(m_around.texture());
  *next++ = static_cast<float>(centredPitch(pitch));
  *next++ = pitch >= 12 ? ratio(m_around.level(pitch - 12, m_frame), level(m_frame)) : kNoOctave;
  *next++ = -std::log(m_around.gain(pitch));
  *next++ = m_frame < m_note.end ? 1 : 0;
  return next;
}

/// How the level, the partials and all together go on, frame by frame.
float* EndInputs::addCurves(float* next) const {
  const auto at = [this](Frame offset) { return std::max(m_frame + offset, m_note.onset); };
  for (const Frame offset : kLevels) *next++ = ratio(level(at(offset)), m_highest);
  for (std::size_t group = 0; group < m_highestPartials.size(); ++group)
    for (const Frame offset : kPartialLevels)
      *next++ = ratio(partials(group, at(offset)), m_highestPartials[group]);
  for (const float highest : m_highestPartials) *next++ = std::log(highest + kSmall);
  for (const Frame offset : kStrokes)
    *next++ = std::log(m_around.stroke(m_frame + offset) + kSmallStroke);
  const float total = m_around.total(m_frame);
  *next++ = std::log(total + kSmall);
  for (const Frame offset : kTotals) *next++ = ratio(m_around.total(m_frame + offset), total);
  return next;
}

EndInputs::Others EndInputs::others() const {
  const auto notes = m_around.notes();
  Others found;
  for (std::size_t j = m_firstBeside; j < notes.size(); ++j) {
    const Candidate& other = notes[j];
    if (other.onset > m_frame + kAboutToBegin) break;
    if (other.pitch == m_note.pitch) continue;
    if (other.onset >= m_frame - kJustBegan) ++found.begun;
    if (other.onset > m_frame - kJustBegan || other.end <= m_frame - kJustBegan) continue;
    ++found.count;
    found.falls += ratioOfLevels(other.pitch, m_frame + kNear, m_frame - kNear);
    if (std::abs(other.onset - m_note.onset) > kTogether) continue;
    ++found.together;
    found.togetherFallen += ratio(m_around.level(other.pitch, m_frame), other.peak);
  }
  return found;
}

float* EndInputs::addOthers(float* next) const {
  const Others found = others();
  *next++ = found.falls / std::max(1.0F, found.count);
  *next++ = found.count;
  *next++ = found.togetherFallen / std::max(1.0F, found.together);
  *next++ = found.together;
  *next++ = found.begun;
  return next;
}

EndInputs::Inputs EndInputs::inputs() const {
  Inputs inputs;
  float* next = addLevels(inputs.data());
  next = addStrokes(next);
  next = addNote(next);
  next = addCurves(next);
  next = addOthers(next);
  *next++ = static_cast<float>(m_note.probability);
  *next++ = std::log(m_note.peak + kSmall);
  *next++ = static_cast<float>(std::clamp(m_note.end - m_frame, -kAfter, kAfter)) /
            static_cast<float>(kAfter);
  *next++ = m_around.fall();
  *next++ = m_around.fallOfNotes();
  assert(next == inputs.data() + inputs.size());
  return inputs;
}

}  // namespace korvel::precise
