// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/exchange/PlacedNotes.h"

#include <algorithm>
#include <array>

#include "exchange/Piece.h"
#include "workflow/exchange/PieceBars.h"

namespace korvel {
namespace {

constexpr int kNoFret = -1;  // of a note that is left out

std::size_t indexOf(int string) { return static_cast<std::size_t>(string); }

}  // namespace

PlacedNotes::PlacedNotes(const exchange::Track& track, std::span<const fingering::Note> notes,
                         const PieceBars& bars) {
  for (std::size_t i = 0; i < notes.size(); ++i) {
    if (notes[i].string < 0) continue;
    const exchange::Note& played = track.notes[i];
    const PieceBars::Place place = bars.placeOf(played.at);
    if (!place.isExact) ++m_left["notes moved to the nearest twelfth of a beat"];
    m_notes.push_back({std::min(place.tick, bars.end() - 1),
                       bars.placeOf(played.at + played.length).tick, notes[i].string, notes[i].fret,
                       static_cast<double>(notes[i].amplitude)});
  }
  std::ranges::stable_sort(m_notes, {}, &PlacedNote::tick);
  partStrikes(bars);
  endStrikes(bars);
  closeGaps();
}

/// Of two notes that a string has at one tick the later one comes a tick later, if that is free. A
/// note that two voices share is one.
void PlacedNotes::partStrikes(const PieceBars& bars) {
  std::array<PlacedNote*, kStrings> last{};
  for (PlacedNote& note : m_notes) {
    PlacedNote*& before = last.at(indexOf(note.string));
    if (before && note.tick <= before->tick) {
      if (note.fret == before->fret || before->tick + 1 >= bars.end()) {
        before->end = std::max(before->end, note.end);
        if (note.fret != before->fret) ++m_left["notes on a string that sounds another one"];
        note.fret = kNoFret;
        continue;
      }
      note.tick = before->tick + 1;
    }
    before = &note;
  }
  std::erase_if(m_notes, [](const PlacedNote& note) { return note.fret == kNoFret; });
  std::ranges::stable_sort(m_notes, {}, &PlacedNote::tick);
}

void PlacedNotes::endStrikes(const PieceBars& bars) {
  std::array<int, kStrings> next;
  next.fill(bars.end());
  for (std::size_t i = m_notes.size(); i-- > 0;) {
    PlacedNote& note = m_notes[i];
    int& strike = next.at(indexOf(note.string));
    note.end = std::min(std::max(note.end, note.tick + 1), strike);
    strike = note.tick;
  }
}

/// What ends a tick before or after other notes begin was meant to end there.
void PlacedNotes::closeGaps() {
  const auto isStruck = [this](int tick) {
    return std::ranges::binary_search(m_notes, tick, {}, &PlacedNote::tick);
  };
  for (PlacedNote& note : m_notes) {
    if (isStruck(note.end)) continue;
    if (isStruck(note.end + 1))
      ++note.end;
    else if (note.end - 1 > note.tick && isStruck(note.end - 1))
      --note.end;
  }
}

}  // namespace korvel
