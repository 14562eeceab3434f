// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/striking/NoteOnsets.h"

#include <algorithm>
#include <array>
#include <optional>

#include "precise/Scale.h"
#include "precise/striking/OnsetWeights.h"

namespace korvel::precise {
namespace {

/// Frames from an onset to the end of the note, and to where the next one of its pitch was tracked.
constexpr Frame kShortest = 5;

}  // namespace

NoteOnsets::NoteOnsets(std::span<const Candidate> notes) : m_notes(notes) {
  std::array<std::optional<std::size_t>, kPitches> last;
  m_allowed.reserve(notes.size());
  for (std::size_t i = 0; i < notes.size(); ++i) {
    const Candidate& note = notes[i];
    m_allowed.push_back({std::max<Frame>(0, note.onset - OnsetInputs::kReach),
                         std::min(note.end - kShortest, note.onset + OnsetInputs::kReach) + 1});
    if (const auto before = last[note.pitch]) {
      m_allowed[i].begin = std::max(m_allowed[i].begin, notes[*before].onset + kShortest);
      m_allowed[*before].end = std::min(m_allowed[*before].end, note.onset - kShortest + 1);
    }
    last[note.pitch] = i;
  }
}

Frame NoteOnsets::onsetOf(std::size_t i, const OnsetInputs& known) const {
  const Frame tracked = m_notes[i].onset;
  Frame best = tracked;
  float most = logOdds(onsetWeights(), known.of(0));
  for (Frame frame = m_allowed[i].begin; frame < m_allowed[i].end; ++frame) {
    if (frame == tracked) continue;
    const float odds = logOdds(onsetWeights(), known.of(frame - tracked));
    if (odds <= most) continue;
    most = odds;
    best = frame;
  }
  return best;
}

}  // namespace korvel::precise
