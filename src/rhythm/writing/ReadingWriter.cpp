// SPDX-License-Identifier: GPL-3.0-or-later
#include "rhythm/writing/ReadingWriter.h"

#include <algorithm>
#include <cmath>

#include "rhythm/beats/TrackMultiples.h"
#include "rhythm/harmony/BeatChords.h"
#include "rhythm/harmony/KeyFinder.h"
#include "rhythm/judging/OnsetPhases.h"
#include "rhythm/writing/WrittenPlaces.h"
#include "rhythm/writing/WrittenValues.h"

namespace korvel::rhythm {
namespace {

int beatOf(int tick) { return (tick >= 0 ? tick : tick - kTicksOfBeat + 1) / kTicksOfBeat; }

/// Where second eighths of swung beats come, as a share of the beat.
double swingRatio(std::span<const Phase> phases) {
  constexpr float kEarliest = 0.40F, kLatest = 0.80F;
  constexpr double kDefault = 2.0 / 3, kLeast = 0.5, kMost = 0.7;
  std::vector<float> shares;
  for (const Phase& phase : phases) {
    if (phase.share >= kEarliest && phase.share <= kLatest) shares.push_back(phase.share);
  }
  if (shares.empty()) return kDefault;
  const auto middle = shares.begin() + static_cast<std::ptrdiff_t>(shares.size() / 2);
  std::ranges::nth_element(shares, middle);
  return std::clamp(static_cast<double>(*middle), kLeast, kMost);
}

/// Beats that stand as they are among swung ones: those with other thirds or sixths than the second
/// eighth.
std::vector<bool> tripletBeats(std::span<const Event> events, std::size_t beats) {
  std::vector<bool> result(beats + 1);
  for (std::size_t i = 0; i < events.size(); ++i) {
    const int tick = events[i].place.tick, place = tick % kTicksOfBeat;
    const bool sixths = place == 6 && i + 1 < events.size() && events[i + 1].place.tick == tick + 2;
    if (place != 4 && place != 2 && !sixths) continue;
    result[static_cast<std::size_t>(beatOf(tick))] = true;
  }
  return result;
}

int swungTick(int tick, const std::vector<bool>& triplets) {
  const int place = tick % kTicksOfBeat;
  const auto beat = static_cast<std::size_t>(beatOf(tick));
  if (beat < triplets.size() && triplets[beat]) return tick;
  return place == 8 ? tick - 2 : place == 10 ? tick - 1 : tick;
}

Place swung(const Place& place, const std::vector<bool>& triplets) {
  const int tick = swungTick(place.tick, triplets);
  return {tick, std::max(1, swungTick(place.end(), triplets) - tick)};
}

}  // namespace

ReadingWriter::ReadingWriter(std::span<const fingering::Note> notes, std::span<const Onset> onsets,
                             const BeatTrack& track)
    : m_notes(notes), m_onsets(onsets), m_track(track) {}

Reading ReadingWriter::write(const Candidate& candidate, int finest) {
  OnsetPhases phases(m_onsets, m_track);
  const WritingSettings settings{candidate.division, finest};
  const WrittenPlaces places = writtenPlaces(m_onsets, phases.all(), m_track.size() - 1, settings);
  Reading reading;
  reading.metre = candidate.metre();
  reading.feel = candidate.feel;
  writeEvents(reading, places.ticks);
  ValueSettings values;
  values.ternary = candidate.division == Division::ternary;
  values.division = places.division;
  reading.beats = m_track;
  values.tickOf = [&](double seconds) { return reading.tickOf(seconds); };
  reading.notes.resize(m_notes.size());
  writeValues(reading.events, reading.notes, m_notes, values);
  if (reading.feel == Feel::swing) {
    reading.swingRatio = swingRatio(phases.all());
    writeSwing(reading);
  }
  crop(reading, candidate.bars);
  const Bars bars{candidate.bars.beats, reading.firstBar};
  reading.chords = chordsOnBeats(reading.beats, bars, m_notes);
  reading.key = keyOf(m_notes, reading.chords);
  return reading;
}

/// Onsets at one tick become one event.
void ReadingWriter::writeEvents(Reading& reading, std::span<const int> ticks) const {
  for (std::size_t i = 0; i < m_onsets.size(); ++i) {
    const bool isNew = reading.events.empty() || reading.events.back().place.tick < ticks[i];
    if (isNew) reading.events.push_back({{ticks[i], 0}, {}});
    auto& notes = reading.events.back().notes;
    notes.insert(notes.end(), m_onsets[i].notes.begin(), m_onsets[i].notes.end());
  }
}

/// Second eighths, which are heard at two thirds of the beat, are written as eighths.
void ReadingWriter::writeSwing(Reading& reading) const {
  const auto triplets = tripletBeats(reading.events, m_track.size());
  for (Event& event : reading.events) event.place = swung(event.place, triplets);
  for (Place& place : reading.notes) place = swung(place, triplets);
}

/// Leaves the beats from that of the first event to the end of all notes.
void ReadingWriter::crop(Reading& reading, const Bars& bars) const {
  const int first = beatOf(reading.events.front().place.tick);
  int end = 0;
  for (const Place& place : reading.notes) end = std::max(end, place.end());
  const auto last = static_cast<std::size_t>(beatOf(end + kTicksOfBeat - 1));
  while (reading.beats.size() <= last) {
    reading.beats.push_back(2 * reading.beats.back() - reading.beats[reading.beats.size() - 2]);
  }
  reading.beats.resize(last + 1);
  reading.beats.erase(reading.beats.begin(), reading.beats.begin() + first);
  const std::size_t into = bars.of(static_cast<std::size_t>(first));
  reading.firstBar = into == 0 ? 0 : bars.beats - into;
  const int zero = (first + static_cast<int>(reading.firstBar)) * kTicksOfBeat;
  for (Event& event : reading.events) event.place.tick -= zero;
  for (Place& place : reading.notes) place.tick -= zero;
}

}  // namespace korvel::rhythm
