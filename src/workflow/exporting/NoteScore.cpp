// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/exporting/NoteScore.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "analysis/beats/SpanNames.h"
#include "analysis/beats/WrittenChords.h"
#include "export/MidiClock.h"
#include "export/score/SongBeats.h"

namespace korvel {
namespace {

using fingering::Note;

constexpr int kDivision = 9600;
constexpr int kDivisionsOfUnit = kDivision / kUnitsOfQuarter;
constexpr double kQuartersOfDottedOne = 1.5;

bool isFingered(const Note& note) {
  return note.string >= 0 && note.string < kStrings && note.fret >= 0;
}

/// Doubling the strength is a step of twenty; one of 1 is about mezzo forte.
int velocityOf(const Note& note) {
  constexpr double kMiddle = 64;
  constexpr double kOfDoubling = 20;
  const double strength = std::max(static_cast<double>(note.strength), 1e-3);
  return std::clamp(static_cast<int>(std::lround(kMiddle + kOfDoubling * std::log2(strength))), 20,
                    127);
}

Meter meterOf(const rhythm::Metre& metre) {
  const TimeSignature signature = signatureOf(metre);
  return {signature.beat, signature.beattype};
}

std::optional<ScoreKey> keyOf(const rhythm::Reading& reading) {
  if (!reading.key) return std::nullopt;
  return ScoreKey{reading.key->tonic, reading.key->minor};
}

std::optional<ScoreHarmony> harmonyAt(const rhythm::Reading& reading, int tick) {
  const auto after = std::ranges::upper_bound(reading.chords, tick, {}, &rhythm::ChordSpan::from);
  if (after == reading.chords.begin()) return std::nullopt;
  const rhythm::ChordSpan& span = *std::prev(after);
  if (tick >= span.to || span.root < 0) return std::nullopt;
  return ScoreHarmony{span.root, std::string(typeOf(span))};
}

/// The beat that the recording itself begins with: its first sound is in it, or in a later one, and
/// it is not so short that it could not be told.
int beatOfZero(const rhythm::Reading& reading) {
  constexpr double kShortest = 0.05;
  return static_cast<int>(std::floor(reading.tickOf(0) / rhythm::kTicksOfBeat + kShortest));
}

}  // namespace

NoteScore::NoteScore(std::span<const Note> notes, const rhythm::Reading& reading)
    : m_notes(notes),
      m_reading(reading),
      m_meter(meterOf(reading.metre)),
      m_unitsOfTick(reading.metre.compound ? 3 : 2) {}

double NoteScore::quartersAMinute() const {
  if (m_reading.tempo() <= 0) return Score().tempo;
  return m_reading.tempo() * (m_reading.metre.compound ? kQuartersOfDottedOne : 1);
}

double NoteScore::secondsOf(int unit) const {
  return m_reading.secondsOf(static_cast<double>(unit) / m_unitsOfTick);
}

BeatChord NoteScore::chordOf(const rhythm::Event& event) const {
  std::array<const Note*, kStrings> strongest{};
  for (const std::size_t index : event.notes) {
    const Note& note = m_notes[index];
    if (!isFingered(note)) continue;
    const Note*& best = strongest.at(static_cast<std::size_t>(note.string));
    if (!best || note.strength > best->strength) best = &note;
  }
  BeatChord chord{event.place.tick * m_unitsOfTick,
                  event.place.ticks * m_unitsOfTick,
                  {},
                  harmonyAt(m_reading, event.place.tick)};
  for (const Note* note : strongest) {
    if (!note) continue;
    const auto index = static_cast<std::size_t>(note - m_notes.data());
    chord.tones.push_back(
        {{note->string, note->fret, note->pitch}, m_reading.notes[index].ticks * m_unitsOfTick});
  }
  return chord;
}

BeatMusic NoteScore::music() const {
  BeatMusic music;
  for (const rhythm::Event& event : m_reading.events) music.chords.push_back(chordOf(event));
  int end = 0;
  for (const rhythm::Place& place : m_reading.notes) end = std::max(end, place.end());
  const int begin = music.chords.empty() ? 0 : std::min(music.chords.front().start, 0);
  music.bars = barsOver(begin, end * m_unitsOfTick, m_meter);
  markTempi(music.bars, quartersAMinute(), [this](int unit) { return secondsOf(unit); });
  return music;
}

Score NoteScore::score(const std::string& title, const OpenPitches& open) const {
  Score score;
  score.title = title;
  score.openStrings.assign(open.begin(), open.end());
  score.tempo = quartersAMinute();
  score.countsBeats = true;
  score.key = keyOf(m_reading);
  if (m_reading.feel == rhythm::Feel::swing) score.swing = m_reading.swingRatio;
  score.bars = scoreBarsOf(music());
  return score;
}

/// Tempi and metres: from the beginning of the recording to the first bar line and on.
void NoteScore::addBeats(MidiSequence& sequence) const {
  const int unitsOfBeat = rhythm::kTicksOfBeat * m_unitsOfTick;
  MidiClock clock(kDivision);
  const int zero = beatOfZero(m_reading);
  const int last = static_cast<int>(m_reading.beats.size() - m_reading.firstBar);
  for (int beat = zero; beat <= std::max(last, zero + 1); ++beat) {
    const double seconds = beat == zero ? 0 : m_reading.secondsOf(beat * rhythm::kTicksOfBeat);
    clock.addBeat(seconds, std::int64_t{beat - zero} * unitsOfBeat * kDivisionsOfUnit);
  }
  sequence.tempi = clock.tempi();
  sequence.quarterSeconds = sequence.tempi.front().quarterSeconds;
  sequence.tempi.erase(sequence.tempi.begin());
  const int bar = m_reading.metre.beats;
  if (const int lead = ((-zero) % bar + bar) % bar; lead > 0) {
    sequence.meter = meterOf({lead, m_reading.metre.compound});
    sequence.meters = {{std::int64_t{lead} * unitsOfBeat * kDivisionsOfUnit, m_meter}};
  }
  for (const Note& note : m_notes) {
    const std::int64_t start = clock.tickAt(note.onset);
    const std::int64_t end = std::max(clock.tickAt(note.end), start + 1);
    sequence.notes.push_back({start, end - start, note.pitch, velocityOf(note)});
  }
}

MidiSequence NoteScore::midi(const std::string& title) const {
  MidiSequence sequence;
  sequence.title = title;
  sequence.division = kDivision;
  sequence.quarterSeconds = 60 / quartersAMinute();
  sequence.meter = m_meter;
  sequence.key = keyOf(m_reading);
  if (m_reading.beats.size() > 1) addBeats(sequence);
  return sequence;
}

}  // namespace korvel
