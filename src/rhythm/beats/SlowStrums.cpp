// SPDX-License-Identifier: GPL-3.0-or-later
#include "rhythm/beats/SlowStrums.h"

#include <algorithm>
#include <limits>

namespace korvel::rhythm {
namespace {

/// In seconds: the sixteenths of a quick arpeggio are further apart.
constexpr double kLongestStep = 0.075;
constexpr double kLongestStroke = 0.36;
constexpr std::size_t kFewestStrings = 4;
/// How much longer the pauses around a stroke are than the longest of its steps.
constexpr double kPauseAround = 1.8;

/// Where a note is on the neck, from low to high; by its pitch as long as no string is known.
int heightOf(const fingering::Note& note) { return note.string >= 0 ? note.string : note.pitch; }

}  // namespace

double SlowStrums::gapAfter(std::size_t note) const {
  if (note + 1 >= m_notes.size()) return std::numeric_limits<double>::infinity();
  return m_notes[note + 1].onset - m_notes[note].onset;
}

/// Whether the note after this one is the next of a stroke.
bool SlowStrums::continues(std::size_t note, int direction) const {
  if (gapAfter(note) > kLongestStep) return false;
  const fingering::Note &here = m_notes[note], &next = m_notes[note + 1];
  if ((here.string >= 0) != (next.string >= 0)) return false;
  return (heightOf(next) - heightOf(here)) * direction > 0;
}

std::size_t SlowStrums::endOf(std::size_t first) const {
  for (const int direction : {1, -1}) {
    std::size_t last = first;
    double longest = 0;
    while (continues(last, direction) &&
           m_notes[last + 1].onset - m_notes[first].onset <= kLongestStroke) {
      longest = std::max(longest, gapAfter(last++));
    }
    if (last - first + 1 < kFewestStrings) continue;
    const double before = first > 0 ? gapAfter(first - 1) : kLongestStroke;
    if (std::min(before, gapAfter(last)) >= kPauseAround * longest) return last + 1;
  }
  return first;
}

}  // namespace korvel::rhythm
