// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingering/Events.h"

#include <algorithm>

#include "music/Neck.h"

namespace korvel::fingering {
namespace {

/// Seconds within which notes start together, in whatever order they are heard.
constexpr double kTogether = 0.05;
/// Seconds that a strum takes at most, and from one of its strings to the next.
constexpr double kStrum = 0.12;
constexpr double kNextString = 0.03;

/// Events on either side that tell a melody from chords, and the share of them with one note.
constexpr std::size_t kAround = 8;
constexpr double kShareOfLine = 0.6;

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

Events::Events(std::span<const Note> notes, std::span<const std::size_t> without) {
  takeAll(notes.size(), without);
  std::ranges::stable_sort(m_byOnset, {}, [&](std::size_t i) { return notes[i].onset; });
  std::vector<std::size_t> order = m_byOnset;
  for (std::span<std::size_t> rest = order; !rest.empty();) {
    const auto event = nextEvent(rest, notes);
    const double onset = notes[event.front()].onset;
    const auto grip = playable(event, notes);
    m_events.push_back({m_played.size(), grip.size(), onset});
    m_played.insert(m_played.end(), grip.begin(), grip.end());
    rest = rest.subspan(event.size());
  }
}

void Events::takeAll(std::size_t notes, std::span<const std::size_t> without) {
  std::vector<bool> isLeft(notes);
  for (const std::size_t note : without) isLeft[note] = true;
  for (std::size_t i = 0; i < notes; ++i)
    if (!isLeft[i]) m_byOnset.push_back(i);
}

std::span<const std::size_t> Events::notes(std::size_t event) const {
  return std::span(m_played).subspan(m_events[event].first, m_events[event].size);
}

bool Events::isOfLine(std::size_t event) const {
  if (m_events[event].size != 1) return false;
  const auto around = std::span(m_events)
                          .first(std::min(size(), event + kAround + 1))
                          .subspan(event - std::min(event, kAround));
  const auto single = std::ranges::count(around, std::size_t{1}, &Event::size);
  return static_cast<double>(single) > kShareOfLine * static_cast<double>(around.size());
}

}  // namespace korvel::fingering
