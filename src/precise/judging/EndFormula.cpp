// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/judging/EndFormula.h"

#include <algorithm>
#include <cmath>

namespace korvel::precise {
namespace {

/// Keeps logarithms of nothing in bounds.
constexpr double kSmall = 0.03;
/// For this long a note does not end, in frames.
constexpr Frame kLeast = 5;
/// It may go on for so long after its level was lost.
constexpr Frame kAfter = 43;
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
constexpr double kStrokeMemory = 12;

double seconds(Frame frames) { return static_cast<double>(frames) / kFramesPerSecond; }

double ratio(double level, double other) { return std::log((level + kSmall) / (other + kSmall)); }

double textureOf(std::span<const Candidate> notes) {
  Frame sounding = 0;
  Frame sum = 0;
  Frame end = 0;
  for (const Candidate& note : notes) {
    sum += note.end - note.onset;
    sounding += std::max<Frame>(0, note.end - std::max(end, note.onset));
    end = std::max(end, note.end);
  }
  return static_cast<double>(sum) / static_cast<double>(std::max<Frame>(1, sounding));
}

}  // namespace

struct EndFormula::Past {
  /// The steepest fall so far, and the level before it.
  double steepest = 0;
  double before = 0;
  /// The largest level so far.
  double highest = 0;
  /// Notes that were struck since: all, those that may be on the same string, the strongest, and
  /// the last.
  double strokes = 0;
  double near = 0;
  double strongest = 0;
  Frame last = 0;
  std::size_t next = 0;  ///< The first note that was not struck yet.
};

EndFormula::EndFormula(const FrameTable& activations, std::span<const float> loudest,
                       std::span<const Candidate> notes, const BinRow& gains, Observer* observer)
    : m_activations(activations),
      m_level(activations),
      m_loudest(loudest),
      m_notes(notes),
      m_gains(gains),
      m_observer(observer),
      m_texture(textureOf(notes)) {}

/// Before the recording begins and after it ends the level is that of its nearest frame.
double EndFormula::level(std::size_t pitch, Frame frame) const {
  const auto last = static_cast<Frame>(m_activations.frames()) - 1;
  return m_level(pitch, std::clamp<Frame>(frame, 0, last));
}

double EndFormula::fall(std::size_t pitch, Frame from, Frame to) const {
  return ratio(level(pitch, to), level(pitch, from));
}

Frame EndFormula::limitOf(std::size_t i) const {
  const Candidate& note = m_notes[i];
  Frame limit = std::min(note.end + kAfter, static_cast<Frame>(m_activations.frames()));
  for (std::size_t j = i + 1; j < m_notes.size() && m_notes[j].onset < limit; ++j)
    if (m_notes[j].pitch == note.pitch) return std::max(m_notes[j].onset, note.onset + 1);
  return limit;
}

/// Takes note of what happens up to the frame.
void EndFormula::pass(std::size_t i, Frame frame, Past& past) const {
  const Candidate& note = m_notes[i];
  const double fallen = fall(note.pitch, frame + kStopBegin, frame + kStopEnd);
  if (fallen < past.steepest) {
    past.steepest = fallen;
    past.before = level(note.pitch, frame + kStopBegin);
  }
  past.highest = std::max(past.highest, level(note.pitch, frame));
  for (; past.next < m_notes.size() && m_notes[past.next].onset <= frame + 1; ++past.next) {
    const Candidate& other = m_notes[past.next];
    if (other.onset < note.onset + kLaterStroke || other.pitch == note.pitch) continue;
    ++past.strokes;
    const std::size_t distance =
        std::max(other.pitch, note.pitch) - std::min(other.pitch, note.pitch);
    if (distance <= kSameString) ++past.near;
    past.strongest = std::max(past.strongest, static_cast<double>(other.peak));
    past.last = other.onset;
  }
}

void EndFormula::addLevels(const Candidate& note, Frame frame, const Past& past, Known& x) const {
  using enum EndFeature;
  const std::size_t p = note.pitch;
  const double here = level(p, frame);
  x[Level] = std::log(here + kSmall);
  x[ToHighest] = ratio(here, past.highest);
  x[ToLoudest] = ratio(here, m_loudest[static_cast<std::size_t>(frame)]);
  x[Fall] = fall(p, frame - kNear, frame);
  x[LongFall] = fall(p, frame - kFar, frame);
  x[Next] = fall(p, frame, frame + kNear);
  x[LongNext] = fall(p, frame, frame + kFar);
  x[Steepest] = past.steepest;
  x[ToSteepest] = past.steepest < 0 ? ratio(here, past.before) : 0;
  x[Age] = std::log(seconds(frame - note.onset));
  x[Strokes] = std::log(1 + past.strokes);
  x[NearStrokes] = std::min(past.near, 1.0);
  x[StrongestStroke] = past.strokes > 0 ? ratio(past.strongest, note.peak) : -3;
  x[SinceStroke] =
      past.strokes > 0 ? std::exp(-static_cast<double>(frame - past.last) / kStrokeMemory) : 0;
  x[EndTexture] = std::log(m_texture);
  x[EndPitch] = centredPitch(p);
  x[OctaveUnder] = p >= 12 ? ratio(level(p - 12, frame), here) : -2;
  x[EndResonance] = -std::log(m_gains[fundamentalBin(p)]);
  x[Tracked] = frame < note.end ? 1 : 0;
}

Frame EndFormula::endOf(std::size_t i) const {
  const Candidate& note = m_notes[i];
  const Frame limit = limitOf(i);
  Past past{.next = i + 1};
  Frame end = std::min(note.onset + kLeast, limit);
  double sum = 0;
  double best = 0;
  for (Frame t = note.onset + 1; t < limit; ++t) {
    pass(i, t, past);
    if (t < note.onset + kLeast) continue;
    Known known;
    addLevels(note, t, past, known);
    if (m_observer) m_observer->frame(note, t, known);
    sum += logOdds(endTerms(), known);
    if (sum < best) continue;
    best = sum;
    end = t + 1;
  }
  return end;
}

}  // namespace korvel::precise
