// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingering/DoubtfulOctaves.h"

#include <algorithm>
#include <iterator>
#include <numeric>

namespace korvel::fingering {
namespace {

/// Seconds within which a note and its overtone start.
constexpr double kWithOvertone = 0.05;
/// How much surer the lower one has to be.
constexpr float kSurer = 0.1F;
/// Frets from the first finger to the last one.
constexpr int kReachOfHand = 3;

bool isOvertone(const Note& note, const Note& below) {
  const int above = note.pitch - below.pitch;
  return (above == 12 || above == 19 || above == 24) &&
         below.probability > note.probability + kSurer;
}

std::vector<std::size_t> byOnset(std::span<const Note> notes) {
  std::vector<std::size_t> order(notes.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::ranges::stable_sort(order, {}, [&](std::size_t i) { return notes[i].onset; });
  return order;
}

/// The first of a string's notes that starts after the notes that start with this one.
auto nextOf(std::vector<Note*>& played, const Note& note) {
  return std::ranges::upper_bound(played, note.onset + kWithOvertone, {}, &Note::onset);
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

DoubtfulOctaves::DoubtfulOctaves(std::span<const Note> notes, const Settled& settled) {
  const std::vector<std::size_t> order = byOnset(notes);
  std::size_t from = 0;
  std::size_t to = 0;
  for (const std::size_t i : order) {
    const Note& note = notes[i];
    while (notes[order[from]].onset < note.onset - kWithOvertone) ++from;
    while (to < order.size() && notes[order[to]].onset <= note.onset + kWithOvertone) ++to;
    if (note.probability >= kSureNote || settled.stringOf(i) != Settled::kAnyString) continue;
    if (to - from != 2) continue;
    if (isOvertone(note, notes[order[order[from] == i ? from + 1 : from]])) m_notes.push_back(i);
  }
}

void DoubtfulOctaves::place(std::span<Note> all, const OpenPitches& open, int frets) const {
  if (m_notes.empty()) return;
  Strings strings = stringsOf(all);
  for (const std::size_t note : m_notes) place(all[note], strings, open, frets);
}

DoubtfulOctaves::Strings DoubtfulOctaves::stringsOf(std::span<Note> all) {
  Strings strings;
  for (const std::size_t i : byOnset(all))
    if (all[i].string >= 0) strings[static_cast<std::size_t>(all[i].string)].push_back(&all[i]);
  return strings;
}

void DoubtfulOctaves::place(Note& note, Strings& strings, const OpenPitches& open, int frets) {
  Pressed pressed;
  for (auto& played : strings) {
    const auto next = nextOf(played, note);
    if (next != played.begin() && (*std::prev(next))->onset >= note.onset - kWithOvertone)
      pressed.add((*std::prev(next))->fret);
  }
  int narrowest = kReachOfHand + 1;
  for (std::size_t s = 0; s < strings.size(); ++s) {
    const int fret = note.pitch - open[s];
    if (fret < 0 || fret > frets || !isSilent(strings[s], note)) continue;
    if (pressed.spanWith(fret) >= narrowest) continue;
    narrowest = pressed.spanWith(fret);
    note.string = static_cast<int>(s);
    note.fret = fret;
  }
  if (note.string < 0) return;
  auto& played = strings[static_cast<std::size_t>(note.string)];
  const auto next = nextOf(played, note);
  if (next != played.end()) note.end = std::min(note.end, (*next)->onset);
  played.insert(next, &note);
}

}  // namespace korvel::fingering
