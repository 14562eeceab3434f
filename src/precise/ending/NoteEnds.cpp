// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/ending/NoteEnds.h"

#include <algorithm>

#include "precise/ending/EndInputs.h"
#include "precise/ending/EndWeights.h"

namespace korvel::precise {
namespace {

/// For this long a note does not end, in frames.
constexpr Frame kLeast = 5;
/// It may go on for so long after its level was lost, as faint ones do under others.
constexpr Frame kAfter = 129;
/// The logarithm of the odds, five to three, from which silence is heard: frames that lie side by
/// side err together, and a note that ends too early costs more of it than one that ends too late.
constexpr float kOddsOfSilence = 0.5F;
/// Where the odds have fallen by this, no later frame makes up for it.
constexpr float kLost = 60;

}  // namespace

Frame NoteEnds::limitOf(std::size_t i) const {
  const auto notes = m_around.notes();
  const Candidate& note = notes[i];
  const Frame limit = std::min(note.end + kAfter, m_around.frames());
  for (std::size_t j = i + 1; j < notes.size() && notes[j].onset < limit; ++j)
    if (notes[j].pitch == note.pitch) return std::max(notes[j].onset, note.onset + 1);
  return limit;
}

Frame NoteEnds::endOf(std::size_t i) const {
  const Candidate& note = m_around.notes()[i];
  const Frame limit = limitOf(i);
  EndInputs known(m_around, i);
  Frame end = std::min(note.onset + kLeast, limit);
  float sum = 0;
  float best = 0;
  bool isOver = false;
  for (Frame t = note.onset + 1; t < limit; ++t) {
    known.pass(t);
    if (t < note.onset + kLeast) continue;
    const EndInputs::Inputs inputs = known.inputs();
    if (m_observer) m_observer->frame(note, t, inputs);
    sum += logOdds(endWeights(), inputs) + kOddsOfSilence;
    isOver = isOver || best - sum > kLost;
    if (isOver && !m_observer) break;
    if (isOver || sum < best) continue;
    best = sum;
    end = t + 1;
  }
  return end;
}

}  // namespace korvel::precise
