// SPDX-License-Identifier: GPL-3.0-or-later
#include "rhythm/RhythmReader.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "rhythm/ReadingAttempt.h"
#include "rhythm/beats/Onsets.h"
#include "rhythm/harmony/ChordChanges.h"
#include "rhythm/writing/ReadingWriter.h"

namespace korvel::rhythm {

struct RhythmReader::Desk {
  std::vector<fingering::Note> notes;
  Wishes wishes;
  Rhythm result;
};

namespace {

/// How much of the work the tempo is that the user wishes, when it has to be compared with others.
constexpr double kShareOfWish = 0.3;
/// A reading that explains the notes so well needs no comparison, and one with this share of what
/// the best one explains is as good.
constexpr double kSurelyFits = 0.9;
constexpr double kFitsAsWell = 0.6;
/// Notes at random times reach 0.25 with their best reading, those of loose players 0.4 and more.
constexpr double kFreeBelow = 0.3;
constexpr std::size_t kFewestToTell = 12;

bool isFree(const ReadingAttempt& attempt, std::size_t onsets) {
  return onsets >= kFewestToTell && attempt.fit() < kFreeBelow;
}

/// Beats that were fixed are where they were put to the last digit.
BeatTrack withBeatsAt(BeatTrack track, const ReadingLimits& limits) {
  constexpr double kLeastBeat = 0.08;
  for (const double time : limits.fixedBeats) {
    const std::size_t i = nearestBeat(track, time);
    if (i > 0 && time - track[i - 1] < kLeastBeat) continue;
    if (i + 1 < track.size() && track[i + 1] - time < kLeastBeat) continue;
    track[i] = time;
  }
  return track;
}

/// What rings on a little beyond the last bar in which something is struck makes no bar of its own.
void endWithLastBar(Reading& reading) {
  if (reading.events.empty()) return;
  const int bar = reading.metre.ticks();
  const int last = reading.events.back().place.tick;
  const int end = last - (last % bar + bar) % bar + bar;
  int ringing = reading.events.back().place.end();
  for (const Place& place : reading.notes) ringing = std::max(ringing, place.end());
  if (ringing <= end || 2 * (ringing - end) >= bar) return;
  const auto cut = [end](Place& place) { place.ticks = std::min(place.ticks, end - place.tick); };
  for (Event& event : reading.events) cut(event.place);
  for (Place& place : reading.notes) cut(place);
}

std::vector<Alternative> alternatives(std::span<const Candidate> candidates) {
  constexpr std::size_t kMost = 8;
  std::vector<const Candidate*> kept{&candidates.front()};
  std::vector<Alternative> result;
  for (const Candidate& one : candidates) {
    if (result.size() == kMost) break;
    if (!std::ranges::all_of(kept, [&](const Candidate* k) { return one.isOther(*k); })) continue;
    kept.push_back(&one);
    const double behind = candidates.front().score - one.score;
    result.push_back({one.tempo, one.metre(), one.feel, behind});
  }
  return result;
}

}  // namespace

RhythmReader::RhythmReader(std::span<const fingering::Note> notes, const Wishes& wishes)
    : m_desk(std::make_unique<Desk>()) {
  m_desk->notes.assign(notes.begin(), notes.end());
  m_desk->wishes = wishes;
  m_work = reading(*m_desk);
}

RhythmReader::RhythmReader(RhythmReader&&) noexcept = default;
RhythmReader& RhythmReader::operator=(RhythmReader&&) noexcept = default;
RhythmReader::~RhythmReader() = default;

bool RhythmReader::step() { return m_work.next(); }

Rhythm RhythmReader::take() { return std::move(m_desk->result); }

platform::Slices RhythmReader::reading(Desk& desk) {
  if (desk.notes.empty()) co_return;
  const std::vector<Onset> onsets = onsetsOf(desk.notes);
  co_yield 0;
  const ChordChanges changes(onsets, desk.notes);
  const HeardOnsets heard{onsets, changes, desk.notes.back().end};
  const bool isTempoWished = desk.wishes.tempo && desk.wishes.taps.empty();
  const double share = isTempoWished ? kShareOfWish : 1;
  auto attempt = std::make_unique<ReadingAttempt>(heard, desk.wishes);
  platform::Slices trying = attempt->run();
  while (trying.next()) co_yield share* trying.done();
  if (isTempoWished && attempt->fit() < kSurelyFits) {
    Wishes wishes = desk.wishes;
    wishes.tempo.reset();
    ReadingAttempt any(heard, wishes);
    trying = any.run();
    while (trying.next()) co_yield share + (1 - share) / 2 * trying.done();
    if (attempt->fit() < kFitsAsWell * any.fit()) {
      wishes.tempo = tempoNextTo(*desk.wishes.tempo, any.best().tempo);
      attempt = std::make_unique<ReadingAttempt>(heard, wishes);
      attempt->addTrack(any.track());
      trying = attempt->run();
      while (trying.next()) co_yield (1 + share) / 2 + (1 - share) / 2 * trying.done();
    }
  }
  co_yield 1;
  write(desk, *attempt, onsets);
}

/// Writes the best reading down.
void RhythmReader::write(Desk& desk, const ReadingAttempt& attempt, std::span<const Onset> onsets) {
  const Candidate& best = attempt.best();
  ReadingWriter writer(desk.notes, onsets, withBeatsAt(attempt.track(), attempt.limits()));
  desk.result.reading = writer.write(best, desk.wishes.finest);
  endWithLastBar(desk.result.reading);
  const bool isTold = desk.wishes.tempo || !desk.wishes.taps.empty();
  desk.result.isFree = !isTold && isFree(attempt, onsets.size());
  desk.result.others = alternatives(attempt.candidates());
}

Rhythm rhythmOf(std::span<const fingering::Note> notes, const Wishes& wishes) {
  RhythmReader reader(notes, wishes);
  while (reader.step()) continue;
  return reader.take();
}

}  // namespace korvel::rhythm
