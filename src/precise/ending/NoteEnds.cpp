// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/ending/NoteEnds.h"

#include <algorithm>

#include "precise/ending/EndInputs.h"
#include "precise/ending/EndWeights.h"

namespace korvel::precise {
namespace {

/// For this long a note does not end, in frames.
constexpr Frame kLeast = 5;
/// It may go on for so long after its level was lost.
constexpr Frame kAfter = 43;
/// The logarithm of the odds, two to one, from which silence is heard: frames that lie side by side
/// err together, and a note that ends too early costs more of it than one that ends too late.
constexpr float kOddsOfSilence = 0.7F;

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
  for (Frame t = note.onset + 1; t < limit; ++t) {
    known.pass(t);
    if (t < note.onset + kLeast) continue;
    const EndInputs::Inputs inputs = known.inputs();
    if (m_observer) m_observer->frame(note, t, inputs);
    sum += logOdds(endWeights(), inputs) + kOddsOfSilence;
    if (sum < best) continue;
    best = sum;
    end = t + 1;
  }
  return end;
}

}  // namespace korvel::precise
