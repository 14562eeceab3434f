// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingering/Fingering.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <limits>
#include <utility>
#include <vector>

#include "fingering/DoubtfulOctaves.h"
#include "fingering/Events.h"
#include "fingering/Habits.h"
#include "fingering/HandChain.h"
#include "fingering/SilentStrings.h"
#include "fingering/open/OpenPositionFit.h"

namespace korvel::fingering {
namespace {

/// Further passes change nothing.
constexpr int kPasses = 4;
/// Progress: the shares of the work that are spent on listing what a hand may do, on each pass, and
/// on the habits after it.
constexpr double kShareOfList = 0.4;
constexpr double kShareOfPass = (1 - kShareOfList) / kPasses;
constexpr double kShareOfHabits = 0.05;

/// Seconds from a note to a doubtful one that may belong to the same stroke, and how much longer
/// the first sounds at least.
constexpr double kStroke = 0.15;
constexpr double kRingsOn = 0.3;

/// Whether a doubtful note would cut off a surer one that was struck just before it.
bool cutsASurerOne(const Note& note, const Note& before) {
  return note.probability < std::min(kSureNote, before.probability) &&
         note.onset < before.onset + kStroke && before.end > note.onset + kRingsOn;
}

void endWhereTheNextStarts(std::span<Note> notes, std::span<const std::size_t> order,
                           const Settled& settled) {
  std::array<Note*, kStrings> last{};
  for (const std::size_t i : order) {
    Note& note = notes[i];
    if (note.string < 0) continue;
    Note*& before = last[static_cast<std::size_t>(note.string)];
    if (before && settled.stringOf(i) == Settled::kAnyString && cutsASurerOne(note, *before)) {
      note.string = note.fret = -1;
      continue;
    }
    if (before) before->end = std::min(before->end, note.onset);
    before = &note;
  }
}

/// Its fret is to count from there.
void moveToCapo(Position& position, int capo) {
  if (position.kind == Position::Kind::open)
    position.fret = 1;
  else if (position.kind != Position::Kind::anywhere)
    position.fret = std::max(1, position.fret - capo);
}

}  // namespace

Fingering::Fingering(const OpenPitches& open, const FingeringOptions& options)
    : m_open(open),
      m_frets(options.frets - options.capo),
      m_capo(options.capo),
      m_expected(options.position) {
  assert(options.capo >= 0 && m_frets >= 0 && options.frets <= FingeringOptions::kMostFrets);
  for (int& pitch : m_open) pitch += options.capo;
}

/// With a position for every moment.
Settled Fingering::fromTheCapo(Settled settled) const {
  settled.positions.insert(settled.positions.begin(),
                           {-std::numeric_limits<double>::infinity(), m_expected});
  for (PositionMark& mark : settled.positions) moveToCapo(mark.position, m_capo);
  return settled;
}

platform::Slices Fingering::placing(std::span<Note> notes, Settled settled) const {
  settled = fromTheCapo(std::move(settled));
  const DoubtfulOctaves octaves(notes, settled);
  const Events events(notes, octaves.notes());
  HandChain chain(m_open, m_frets, settled, events, notes);
  chain.drawToTheNut(openPositionFit(events, notes, m_open, settled));
  Habits habits(events, notes);
  platform::Slices working = chain.list();
  while (working.next()) co_yield kShareOfList* working.done();
  for (int i = 0; i < kPasses; ++i) {
    const double done = kShareOfList + i * kShareOfPass;
    working = chain.pass();
    while (working.next()) co_yield done + (kShareOfPass - kShareOfHabits) * working.done();
    if (i + 1 == kPasses) break;
    working = habits.tell(chain);
    while (working.next()) co_yield done + kShareOfPass - kShareOfHabits*(1 - working.done());
  }
  assign(events, chain, settled, notes);
  placeWhatIsLeft(settled, notes);
}

void Fingering::assign(const Events& events, const HandChain& chain, const Settled& settled,
                       std::span<Note> notes) const {
  for (Note& note : notes) note.string = note.fret = -1;
  for (std::size_t event = 0; event < events.size(); ++event) {
    const auto choice = std::ranges::max_element(chain.choices(event), {}, &Choice::probability);
    const auto indices = events.notes(event);
    for (std::size_t i = 0; i < indices.size(); ++i) {
      if (choice->grip.string[i] == Grip::kNone) continue;
      Note& note = notes[indices[i]];
      note.string = choice->grip.string[i];
      note.fret = note.pitch - m_open[static_cast<std::size_t>(note.string)] + m_capo;
    }
  }
  endWhereTheNextStarts(notes, events.byOnset(), settled);
}

void Fingering::placeWhatIsLeft(const Settled& settled, std::span<Note> notes) const {
  std::vector<Note*> left;
  for (std::size_t i = 0; i < notes.size(); ++i)
    if (notes[i].string < 0 && settled.stringOf(i) == Settled::kAnyString)
      left.push_back(&notes[i]);
  std::ranges::stable_sort(left, {}, &Note::onset);
  SilentStrings strings(notes, m_open, m_frets);
  for (Note* note : left) {
    strings.place(*note);
    if (note->string >= 0) note->fret += m_capo;
  }
}

}  // namespace korvel::fingering
