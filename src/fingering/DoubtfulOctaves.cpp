// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingering/DoubtfulOctaves.h"

#include <algorithm>
#include <numeric>

namespace korvel::fingering {
namespace {

/// Seconds within which a note and its overtone start.
constexpr double kWithOvertone = 0.05;
/// How much surer the lower one has to be.
constexpr float kSurer = 0.1F;

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

}  // namespace korvel::fingering
