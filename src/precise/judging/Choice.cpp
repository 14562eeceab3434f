// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/judging/Choice.h"

#include <algorithm>
#include <cstdlib>
#include <tuple>

#include "precise/judging/OnsetIndex.h"
#include "precise/seeing/Window.h"

namespace korvel::precise {
namespace {

/// Everything together rises at a stroke to this share of the recording's strong ones.
constexpr double kStroke = 0.6;
/// Frames around an onset in which it does.
constexpr Frame kStrokeFrames = 2;
constexpr double kShareOfStroke = 0.3;
/// Probable notes for one that is only taken for its stroke: noise has strokes too, but hardly
/// anything that is probable.
constexpr std::size_t kSureOfStroke = 2;

bool isStruck(Frame onset, const Flux& flux) {
  return largest(Window{onset - kStrokeFrames, onset + kStrokeFrames + 1},
                 [&](Frame t) { return flux.overall(t); }) > kStroke;
}

bool isBegun(Frame onset, std::span<const Candidate> notes) {
  return std::ranges::any_of(notes, [onset](const Candidate& note) {
    return std::abs(note.onset - onset) <= OnsetIndex::kNear;
  });
}

/// Moves candidates to the notes where nothing else explains a stroke, the most probable first.
void hearStrokes(double leastProbability, const Flux& flux, std::vector<Candidate>& others,
                 std::vector<Candidate>& notes) {
  std::ranges::sort(others, {}, [](const Candidate& other) {
    return std::tuple(-other.probability, other.onset, other.pitch);
  });
  const std::size_t most = notes.size() + notes.size() / kSureOfStroke;
  std::erase_if(others, [&](const Candidate& other) {
    const bool takes = notes.size() < most && other.probability >= leastProbability &&
                       isStruck(other.onset, flux) && !isBegun(other.onset, notes);
    if (takes) notes.push_back(other);
    return takes;
  });
}

}  // namespace

Choice::Choice(std::span<const Candidate> candidates, const std::vector<char>& probable,
               double threshold, const Flux& flux) {
  for (std::size_t i = 0; i < candidates.size(); ++i)
    (probable[i] ? notes : doubtful).push_back(candidates[i]);
  hearStrokes(kShareOfStroke * threshold, flux, doubtful, notes);
  sortByOnset(notes);
  const auto removed = keepSixStrongest(notes);
  doubtful.insert(doubtful.end(), removed.begin(), removed.end());
  std::erase_if(doubtful,
                [](const Candidate& c) { return c.probability < Analysis::kLeastDoubtful; });
  sortByOnset(doubtful);
}

void dropWhatSoundsWith(std::span<const Candidate> notes, std::vector<Candidate>& doubtful) {
  std::erase_if(doubtful, [notes](const Candidate& other) {
    const auto after = std::ranges::lower_bound(notes, other.end, {}, &Candidate::onset);
    return std::any_of(notes.begin(), after, [&](const Candidate& note) {
      return note.pitch == other.pitch && note.end > other.onset;
    });
  });
}

}  // namespace korvel::precise
