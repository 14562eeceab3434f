// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/fingering/Events.h"

#include <algorithm>
#include <numeric>

#include "music/Neck.h"

namespace korvel::precise {
namespace {

/// Seconds within which notes start together, in whatever order they are heard.
constexpr double kTogether = 0.05;
/// Seconds that a strum takes at most, and from one of its strings to the next.
constexpr double kStrum = 0.12;
constexpr double kNextString = 0.03;

/// Events for each note of a melody, at least.
constexpr double kEventsOfLine = 0.9;

/// Whether a note goes on where the notes before it rise or fall, in order of onset.
bool goesOn(const Note& note, std::span<const std::size_t> before, std::span<const Note> notes) {
  const double onset = note.onset;
  if (before.size() >= kStrings || onset - notes[before.front()].onset > kStrum ||
      onset - notes[before.back()].onset > kNextString)
    return false;
  const auto pitch = [&](std::size_t i) { return notes[i].pitch; };
  return std::ranges::all_of(
             before, [&](int p) { return p < note.pitch; }, pitch) ||
         std::ranges::all_of(
             before, [&](int p) { return p > note.pitch; }, pitch);
}

/// The front of the order that one grip plays: what starts together, and the rest of a strum.
std::span<std::size_t> nextEvent(std::span<std::size_t> order, std::span<const Note> notes) {
  const double together = notes[order.front()].onset + kTogether;
  std::size_t size = 1;
  while (size < order.size() && (notes[order[size]].onset <= together ||
                                 goesOn(notes[order[size]], order.first(size), notes)))
    ++size;
  return order.first(size);
}

/// The strongest notes of an event, no more than strings, by pitch.
std::span<std::size_t> playable(std::span<std::size_t> event, std::span<const Note> notes) {
  std::ranges::stable_sort(event, std::ranges::greater(),
                           [&](std::size_t i) { return notes[i].strength; });
  event = event.first(std::min<std::size_t>(event.size(), kStrings));
  std::ranges::stable_sort(event, {}, [&](std::size_t i) { return notes[i].pitch; });
  return event;
}

}  // namespace

Events::Events(std::span<const Note> notes) : m_byOnset(notes.size()) {
  std::iota(m_byOnset.begin(), m_byOnset.end(), std::size_t{0});
  std::ranges::stable_sort(m_byOnset, {}, [&](std::size_t i) { return notes[i].onset; });
  std::vector<std::size_t> order = m_byOnset;
  for (std::span<std::size_t> rest = order; !rest.empty();) {
    const auto event = nextEvent(rest, notes);
    rest = rest.subspan(event.size());
    const auto grip = playable(event, notes);
    m_played.insert(m_played.end(), grip.begin(), grip.end());
    m_sizes.push_back(grip.size());
  }
}

bool Events::areOneLine() const {
  return static_cast<double>(m_sizes.size()) > kEventsOfLine * static_cast<double>(m_played.size());
}

}  // namespace korvel::precise
