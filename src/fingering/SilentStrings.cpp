// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingering/SilentStrings.h"

#include <algorithm>
#include <iterator>

namespace korvel::fingering {
namespace {

/// Seconds within which notes of one grip start.
constexpr double kOfOneGrip = 0.05;
/// Frets from the first finger to the last one.
constexpr int kReachOfHand = 3;

/// The first of a string's notes that starts after the notes that start with this one.
auto nextOf(std::vector<Note*>& played, const Note& note) {
  return std::ranges::upper_bound(played, note.onset + kOfOneGrip, {}, &Note::onset);
}

bool isSilent(std::vector<Note*>& played, const Note& note) {
  const auto next = nextOf(played, note);
  return next == played.begin() || (*std::prev(next))->end <= note.onset;
}

/// The pressed frets of what starts with a note.
struct Pressed {
  int lowest = 0;  ///< 0 when there are none.
  int highest = 0;

  void add(int fret) {
    if (fret == 0) return;
    lowest = lowest == 0 ? fret : std::min(lowest, fret);
    highest = std::max(highest, fret);
  }
  /// From the nut when nothing else is pressed.
  int spanWith(int fret) const {
    if (lowest == 0) return fret;
    Pressed with = *this;
    with.add(fret);
    return with.highest - with.lowest;
  }
};

}  // namespace

SilentStrings::SilentStrings(std::span<Note> notes, const OpenPitches& open, int frets)
    : m_open(open), m_frets(frets) {
  for (Note& note : notes)
    if (note.string >= 0) m_strings[static_cast<std::size_t>(note.string)].push_back(&note);
  for (Played& played : m_strings) std::ranges::stable_sort(played, {}, &Note::onset);
}

void SilentStrings::place(Note& note) {
  Pressed pressed;
  for (Played& played : m_strings) {
    const auto next = nextOf(played, note);
    if (next == played.begin()) continue;
    const Note& other = **std::prev(next);
    if (other.onset >= note.onset - kOfOneGrip)
      pressed.add(other.pitch - m_open[static_cast<std::size_t>(other.string)]);
  }
  int narrowest = kReachOfHand + 1;
  for (std::size_t s = 0; s < m_strings.size(); ++s) {
    const int fret = note.pitch - m_open[s];
    if (fret < 0 || fret > m_frets || !isSilent(m_strings[s], note)) continue;
    if (pressed.spanWith(fret) >= narrowest) continue;
    narrowest = pressed.spanWith(fret);
    note.string = static_cast<int>(s);
    note.fret = fret;
  }
  if (note.string < 0) return;
  Played& played = m_strings[static_cast<std::size_t>(note.string)];
  const auto next = nextOf(played, note);
  if (next != played.end()) note.end = std::min(note.end, (*next)->onset);
  played.insert(next, &note);
}

}  // namespace korvel::fingering
