// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingering/Alternatives.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <limits>
#include <map>

#include "fingering/Fingering.h"
#include "fingering/HandScores.h"
#include "fingering/grips/GripList.h"

namespace korvel::fingering {
namespace {

/// Places that the hand is drawn to, and others that it is kept at.
constexpr std::array kHomes{2, 3, 5, 7, 8, 10};
constexpr std::array kStays{1, 3, 5, 7, 9, 12, 15};

std::size_t placedOf(std::span<const Note> notes) {
  return static_cast<std::size_t>(
      std::ranges::count_if(notes, [](const Note& note) { return note.string >= 0; }));
}

/// What tells two ways to play the same notes apart.
std::vector<int> stringsOf(std::span<const Note> notes) {
  std::vector<int> strings;
  std::ranges::transform(notes, std::back_inserter(strings), &Note::string);
  return strings;
}

double meanFret(std::span<const Note> notes) {
  double sum = 0;
  for (const Note& note : notes)
    if (note.string >= 0) sum += note.fret;
  return sum / static_cast<double>(std::max<std::size_t>(placedOf(notes), 1));
}

std::vector<Position> positions() {
  std::vector<Position> all{{}};
  for (const int fret : kHomes) all.push_back({Position::Kind::towards, fret});
  for (const int fret : kStays) all.push_back({Position::Kind::around, fret});
  return all;
}

double easeOf(const Grip& grip) {
  const Passage passage;
  double best = -std::numeric_limits<double>::infinity();
  const Places places = placesOf(grip);
  for (int place = places.first; place <= places.last; ++place)
    best = std::max(best, scoreAt(place, grip, passage));
  return best + scoreOf(grip, passage);
}

}  // namespace

std::vector<std::vector<Note>> alternatives(const OpenPitches& open,
                                            const FingeringOptions& options,
                                            std::span<const Note> notes) {
  std::map<std::vector<int>, std::vector<Note>> found;
  std::size_t most = 0;
  for (const Position& position : positions()) {
    FingeringOptions there = options;
    there.position = position;
    std::vector<Note> placed(notes.begin(), notes.end());
    Fingering(open, there).place(placed);
    most = std::max(most, placedOf(placed));
    found.emplace(stringsOf(placed), std::move(placed));
  }
  std::vector<std::vector<Note>> all;
  for (auto& [strings, placed] : found)
    if (placedOf(placed) == most) all.push_back(std::move(placed));
  std::ranges::stable_sort(all, {}, &meanFret);
  return all;
}

std::vector<Grip> gripsByEase(const OpenPitches& open, int frets, std::span<const int> pitches) {
  std::vector<GripNote> notes;
  for (const int pitch : pitches) notes.push_back({.pitch = pitch});
  GripList list(open, frets);
  std::vector<Grip> grips;
  for (const Grip& grip : list.find(notes))
    if (grip.played == static_cast<int>(notes.size())) grips.push_back(grip);
  std::ranges::stable_sort(grips, std::ranges::greater(), &easeOf);
  return grips;
}

}  // namespace korvel::fingering
