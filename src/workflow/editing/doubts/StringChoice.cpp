// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/editing/doubts/StringChoice.h"

#include <algorithm>
#include <cmath>

#include "fingering/Fingering.h"

namespace korvel {
namespace {

using fingering::FingeringOptions;
using fingering::Note;

/// What is fingered together with new notes, on both sides of them, in seconds.
constexpr double kPhrase = 15;
/// Notes that tell where the hand is.
constexpr double kHandReach = 2;
/// In frets: what the string that was wished is nearer than others, and how far open ones are.
constexpr double kWished = 4;
constexpr double kOpenString = 2;

std::vector<Note> between(std::span<const Note> notes, double from, double to) {
  const auto first = std::ranges::lower_bound(notes, from, {}, &Note::onset);
  const auto end = std::ranges::upper_bound(notes, to, {}, &Note::onset);
  return {first, end};
}

/// As a hand would play all of it from the beginning, by the indexes of `added`.
std::vector<int> wishedStrings(std::span<const Note> fixed, std::span<const Note> added,
                               const OpenPitches& open, int capo) {
  FingeringOptions options;
  options.capo = capo;
  std::vector<Note> all =
      between(fixed, added.front().onset - kPhrase, added.back().onset + kPhrase);
  const std::size_t first = all.size();
  all.insert(all.end(), added.begin(), added.end());
  for (std::size_t i = first; i < all.size(); ++i) all[i].probability = 1;
  fingering::Fingering(open, options).place(all);
  std::vector<int> strings;
  for (std::size_t i = first; i < all.size(); ++i) strings.push_back(all[i].string);
  return strings;
}

double handAt(std::span<const Note> fixed, double seconds) {
  std::vector<int> frets;
  for (const Note& note : between(fixed, seconds - kHandReach, seconds + kHandReach))
    if (note.fret > 0) frets.push_back(note.fret);
  if (frets.empty()) return 1;
  const auto middle = frets.begin() + static_cast<std::ptrdiff_t>(frets.size() / 2);
  std::ranges::nth_element(frets, middle);
  return *middle;
}

}  // namespace

std::optional<int> StringChoice::best(const std::array<bool, kStrings>& isFree) const {
  std::optional<int> found;
  double least = 0;
  for (int string = 0; string < kStrings; ++string) {
    const auto at = static_cast<std::size_t>(string);
    if (frets[at] < 0 || !isFree[at]) continue;
    const double distance = (frets[at] == 0 ? kOpenString : std::abs(frets[at] - hand)) -
                            (string == wished ? kWished : 0);
    if (!found || distance < least) {
      found = string;
      least = distance;
    }
  }
  return found;
}

std::vector<StringChoice> stringChoices(std::span<const Note> fixed, std::span<const Note> added,
                                        const OpenPitches& open, int capo) {
  std::vector<StringChoice> choices(added.size());
  if (added.empty()) return choices;
  const std::vector<int> wished = wishedStrings(fixed, added, open, capo);
  for (std::size_t i = 0; i < added.size(); ++i) {
    StringChoice& choice = choices[i];
    choice.wished = wished[i];
    choice.hand = handAt(fixed, added[i].onset);
    for (std::size_t string = 0; string < choice.frets.size(); ++string) {
      const int fret = added[i].pitch - open[string];
      choice.frets[string] = fret >= capo && fret <= FingeringOptions::kMostFrets ? fret : -1;
    }
  }
  return choices;
}

}  // namespace korvel
