// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingering/TuningFit.h"

#include <algorithm>
#include <limits>
#include <utility>
#include <vector>

#include "fingering/DoubtfulOctaves.h"
#include "fingering/Events.h"
#include "fingering/HandChain.h"
#include "music/Pitch.h"

namespace korvel::fingering {
namespace {

/// For each event, where notes lie below the strings that were thought of, and where none do.
/// Pieces of Standard lie better in another tuning by 0.38 at most.
constexpr double kClearWithLowNotes = 0.4;
constexpr double kClear = 0.6;
/// For all of them together, and how many there have to be: a few notes tell nothing.
constexpr double kClearAtAll = 15;
constexpr std::size_t kFewestEvents = 16;
/// For each event, before the next best one.
constexpr double kBeforeOthers = 0.05;
/// For each event and each turn of pegs: of tunings that do as well, the one that takes the fewest.
constexpr double kPerTurn = 0.2;
/// For a power chord that one finger holds, as low strings a fifth apart are tuned for that. Hands
/// were only seen in Standard, where they hold it otherwise.
constexpr double kOneFinger = 2.6;
constexpr int kFifth = 7;
/// So many sure notes below the strings are no mistakes, nor is this share of all.
constexpr std::ptrdiff_t kFewestLow = 3;
constexpr double kLeastShareOfLow = 0.01;
constexpr int kHighestCapoOfSongs = 7;

OpenPitches raised(OpenPitches open, int by) {
  for (int& pitch : open) pitch += by;
  return open;
}

/// The hand is wherever it is easiest.
Settled anywhere() {
  Settled settled;
  settled.positions.push_back({-std::numeric_limits<double>::infinity(), {}});
  return settled;
}

bool hasNotesBelow(int lowest, std::span<const Note> notes) {
  const auto low = std::ranges::count_if(notes, [lowest](const Note& note) {
    return note.pitch < lowest && note.probability >= kSureNote;
  });
  return low >= kFewestLow &&
         static_cast<double>(low) >= kLeastShareOfLow * static_cast<double>(notes.size());
}

bool hasLowFifth(const OpenPitches& open) { return open[1] - open[0] == kFifth; }

/// Events of a root with its fifth, and perhaps the octave.
int powerChords(const Events& events, std::span<const Note> notes) {
  int count = 0;
  for (std::size_t event = 0; event < events.size(); ++event) {
    const auto chord = events.notes(event);
    if (chord.size() != 2 && chord.size() != 3) continue;
    const int root = notes[chord[0]].pitch;
    const bool hasFifth = notes[chord[1]].pitch == root + kFifth;
    if (hasFifth && notes[chord.back()].pitch - root <= kNotesPerOctave) ++count;
  }
  return count;
}

/// All strings tuned down together are one turn.
int turnsBetween(const OpenPitches& one, const OpenPitches& other) {
  const int together = one.back() - other.back();
  int turns = together == 0 ? 0 : 1;
  for (std::size_t s = 0; s < one.size(); ++s) turns += one[s] - other[s] == together ? 0 : 1;
  int single = 0;
  for (std::size_t s = 0; s < one.size(); ++s) single += one[s] == other[s] ? 0 : 1;
  return std::min(turns, single);
}

/// Another A moves all strings together.
int turnsFrom(const OpenPitches& thought, const Strings& other) {
  return turnsBetween(other.open, thought) + (other.moved == 0 ? 0 : 1);
}

/// But for a capo that makes the strings those that sound so.
double easeBehindAnyCapo(const OpenPitches& open, const Strings& found,
                         const FingeringOptions& options, std::span<const Note> notes) {
  double best = -std::numeric_limits<double>::infinity();
  for (int capo = options.capo; capo <= kHighestCapoOfSongs; ++capo) {
    if (found.moved != 0 && raised(open, capo - options.capo) == found.sounding()) continue;
    FingeringOptions behind = options;
    behind.capo = capo;
    best = std::max(best, easeOn(open, behind, notes));
  }
  return best;
}

}  // namespace

double easeOn(const OpenPitches& open, const FingeringOptions& options,
              std::span<const Note> notes) {
  if (notes.empty()) return 0;
  const Settled settled = anywhere();
  const Events events(notes);
  HandChain chain(raised(open, options.capo), options.frets - options.capo, settled, events, notes);
  chain.list().finish();
  chain.pass().finish();
  return chain.evidence();
}

OpenPitches Strings::sounding() const { return raised(open, moved); }

std::optional<Strings> otherTuning(const OpenPitches& thought, std::span<const Strings> others,
                                   const FingeringOptions& options, std::span<const Note> notes) {
  const Events events(notes);
  if (events.size() < kFewestEvents) return {};
  const auto perEvent = static_cast<double>(events.size());
  const bool goesDeeper = hasNotesBelow(std::ranges::min(thought) + options.capo, notes);
  const bool hasFifths = goesDeeper || hasLowFifth(thought);
  const double oneFinger = hasFifths ? kOneFinger * powerChords(events, notes) : 0;
  std::optional<Strings> best;
  double ease = 0;
  double worth = -std::numeric_limits<double>::infinity();
  double second = worth;
  for (const Strings& other : others) {
    const OpenPitches sounding = other.sounding();
    if (sounding == thought) continue;
    double here = easeOn(sounding, options, notes);
    if (hasLowFifth(sounding)) here += oneFinger;
    const double worthHere = here - kPerTurn * perEvent * turnsFrom(thought, other);
    if (worthHere <= worth) {
      second = std::max(second, worthHere);
      continue;
    }
    best = other;
    ease = here;
    second = std::exchange(worth, worthHere);
  }
  if (!best || worth - second < kBeforeOthers * perEvent) return {};
  const double clear = goesDeeper ? kClearWithLowNotes : kClear;
  const double before = easeOn(thought, options, notes) + (hasLowFifth(thought) ? oneFinger : 0);
  if (ease - before < std::max(clear * perEvent, kClearAtAll)) return {};
  return easeBehindAnyCapo(thought, *best, options, notes) < ease ? best : std::nullopt;
}

}  // namespace korvel::fingering
