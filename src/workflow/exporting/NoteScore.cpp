// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/exporting/NoteScore.h"

#include <algorithm>
#include <cmath>

#include "analysis/beats/SpanNames.h"
#include "analysis/beats/WrittenChords.h"
#include "export/MidiClock.h"
#include "export/SongMidi.h"
#include "export/score/SongScore.h"
#include "music/Pitch.h"

namespace korvel {
namespace {

using fingering::Note;

constexpr int kDivision = 9600;
constexpr int kDivisionsOfUnit = kDivision / kUnitsOfQuarter;
constexpr double kQuartersOfDottedOne = 1.5;

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

/// The beat that the recording itself begins with: its first sound is in it, or in a later one, and
/// it is not so short that it could not be told.
int beatOfZero(const rhythm::Reading& reading) {
  constexpr double kShortest = 0.05;
  return static_cast<int>(std::floor(reading.tickOf(0) / rhythm::kTicksOfBeat + kShortest));
}

}  // namespace

NoteScore::NoteScore(std::span<const Note> notes, const rhythm::Reading& reading,
                     const OpenPitches& open)
    : m_notes(notes),
      m_reading(reading),
      m_open(open),
      m_meter(meterOf(reading.metre)),
      m_unitsOfTick(reading.metre.compound ? 3 : 2) {}

double NoteScore::quartersAMinute() const {
  if (m_reading.tempo() <= 0) return Score().tempo;
  return m_reading.tempo() * (m_reading.metre.compound ? kQuartersOfDottedOne : 1);
}

BeatSheet::Chord NoteScore::sheetChordOf(const WrittenChord& written) const {
  BeatSheet::Chord chord;
  for (const WrittenTone& tone : written.tones) {
    const int pitch = addNotes(m_open.at(static_cast<std::size_t>(tone.string)), tone.fret);
    chord.tones.push_back({{tone.string, tone.fret, pitch}, tone.ticks});
    chord.played.push_back({pitch, tone.ticks});
  }
  std::ranges::sort(chord.tones, {}, [](const BeatTone& each) { return each.tone.string; });
  if (written.span >= 0) {
    const rhythm::ChordSpan& span = m_reading.chords[static_cast<std::size_t>(written.span)];
    chord.harmony = ScoreHarmony{span.root, std::string(typeOf(span))};
  }
  return chord;
}

BeatSheet NoteScore::sheet() const {
  BeatSheet sheet;
  sheet.time.tempo = m_reading.tempo();
  if (m_reading.feel == rhythm::Feel::swing) sheet.time.swing = m_reading.swingRatio;
  sheet.key = keyOf(m_reading);
  const std::vector<WrittenChord> written = writtenChords(m_notes, m_reading);
  for (const WrittenChord& chord : written) {
    sheet.time.chords.push_back({chord.ticks, chord.beatTime});
    sheet.chords.push_back(sheetChordOf(chord));
  }
  if (written.empty()) return sheet;
  const int last = written.back().bar;
  sheet.meters.assign(static_cast<std::size_t>(last) + 1, m_meter);
  const int before = -written.front().tick;  // a pick-up alone is a bar that is not full
  if (last > 0 && before > 0 && before < m_reading.metre.ticks()) sheet.time.pickUp = before;
  return sheet;
}

Score NoteScore::head(const std::string& title) const {
  Score head;
  head.title = title;
  head.openStrings.assign(m_open.begin(), m_open.end());
  return head;
}

Score NoteScore::score(const std::string& title) const { return scoreOf(head(title), sheet()); }

MidiSequence NoteScore::midi(const std::string& title) const {
  return midiOf(head(title), sheet());
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

MidiSequence NoteScore::heardMidi(const std::string& title) const {
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
