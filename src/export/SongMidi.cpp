// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/SongMidi.h"

#include <algorithm>
#include <span>

#include "export/MidiClock.h"
#include "export/score/ChordReading.h"
#include "export/score/SongBeats.h"
#include "export/score/SongScore.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "music/ChordStep.h"
#include "music/Ticks.h"

namespace korvel {
namespace {

constexpr int kDivision = 480;
constexpr int kTicksOfUnit = kDivision / kUnitsOfQuarter;
constexpr int kTicksOfStep = kDivision / kSixteenthsOfQuarter;
constexpr int kSoundingTicksOfStep = kTicksOfStep * 95 / 100;
constexpr int kVelocity = 50;
constexpr int kRelease = 20;

/// The MIDI ticks of the beats from that of the first chord on.
MidiClock clockOf(const SongBeats& beats, const SongTime& time, int first) {
  const int end = std::max(beats.time().end(), first + 1);
  MidiClock clock(kDivision);
  for (int tick = first; tick - kTicksOfBeat < end; tick += kTicksOfBeat) {
    const std::int64_t units = beats.unitsOf(tick) - beats.unitsOf(first);
    clock.addBeat(time.secondsOf(tick), units * kTicksOfUnit);
  }
  return clock;
}

/// As few signs as make up a pick-up.
Meter meterOfPickUp(int units, const Meter& meter) {
  int type = meter.isCompound() ? 8 : 4;
  while (units % (kUnitsOfWhole / type) != 0) type *= 2;
  return {units * type / kUnitsOfWhole, type};
}

int beatBefore(int tick) {
  const int inBeat = tick % kTicksOfBeat;
  return tick - (inBeat < 0 ? inBeat + kTicksOfBeat : inBeat);
}

/// Where the file begins, in units.
int zeroOf(const BeatBar& first) {
  return first.start + first.length - writtenPickUp(first.length, first.meter);
}

void addMeters(MidiSequence& sequence, const std::vector<BeatBar>& bars) {
  const BeatBar& first = bars.front();
  const int zero = zeroOf(first);
  const int lead = first.start + first.length - zero;
  const bool isWhole = lead == first.meter.units();
  sequence.meter = isWhole ? first.meter : meterOfPickUp(lead, first.meter);
  Meter before = sequence.meter;
  for (const BeatBar& bar : std::span(bars).subspan(1)) {
    if (bar.meter != before)
      sequence.meters.push_back({std::int64_t{bar.start - zero} * kTicksOfUnit, bar.meter});
    before = bar.meter;
  }
}

void addTones(MidiSequence& sequence, const BeatSheet& sheet, const SongTime& time,
              const MidiClock& clock) {
  for (std::size_t i = 0; i < sheet.chords.size(); ++i)
    for (const BeatSheet::Played& tone : sheet.chords[i].played) {
      const int tick = time.tickOf(i);
      const int ticks = tone.ticks > 0 ? tone.ticks : time.tickOf(i + 1) - tick;
      const std::int64_t start = clock.tickAt(time.secondsOf(tick));
      const std::int64_t end = clock.tickAt(time.secondsOf(static_cast<double>(tick) + ticks));
      sequence.notes.push_back(
          {start, std::max<std::int64_t>(end - start, 1), tone.pitch, kVelocity, kRelease});
    }
}

/// Leaves out what of the first beat lies before the file.
void cutFront(MidiSequence& sequence, std::int64_t ticks) {
  for (MidiTempo& tempo : sequence.tempi) tempo.start -= ticks;
  for (MidiNote& note : sequence.notes) note.start -= ticks;
}

void addBeats(MidiSequence& sequence, const BeatSheet& sheet, const std::optional<Meter>& meter) {
  const SongBeats beats(sheet);
  const std::vector<BeatBar> bars = beats.bars(meter);
  const int first = beatBefore(beats.time().begin());
  sequence.tempi = clockOf(beats, beats.time(), first).tempi(sheet.rate);
  sequence.quarterSeconds = sequence.tempi.front().quarterSeconds;
  sequence.tempi.erase(sequence.tempi.begin());
  sequence.key = sheet.key;
  addMeters(sequence, bars);
  // Within each beat the file has one tempo, which strict time has too.
  const SongTime strict(sheet.time, SongTime::Tempo::strict);
  addTones(sequence, sheet, strict, clockOf(beats, strict, first));
  cutFront(sequence, std::int64_t{zeroOf(bars.front()) - beats.unitsOf(first)} * kTicksOfUnit);
}

void addSlices(MidiSequence& sequence, QBSong& song, const std::vector<int>& open) {
  std::int64_t start = 0;
  for (const auto& chord : song.allChords()) {
    for (const QBTone* tone : playedTones(*chord)) {
      const std::int64_t length = std::int64_t{kSoundingTicksOfStep} * tone->soundingSteps();
      sequence.notes.push_back({start, length, pitchOf(*tone, open), kVelocity, kRelease});
    }
    start += kTicksOfStep;
  }
}

MidiSequence headOfMidi(const Score& head) {
  MidiSequence sequence;
  sequence.title = head.title;
  sequence.instrument = head.instrument;
  sequence.division = kDivision;
  sequence.quarterSeconds = 60 / head.tempo;
  return sequence;
}

}  // namespace

MidiSequence midiOf(QBSong& song, const std::optional<Meter>& meter) {
  const Score head = headOf(song);
  if (song.isOnBeats()) return midiOf(head, sheetOf(song, head.openStrings), meter);
  MidiSequence sequence = headOfMidi(head);
  sequence.meter = meter ? *meter : meterOf(song);
  addSlices(sequence, song, head.openStrings);
  return sequence;
}

MidiSequence midiOf(const Score& head, const BeatSheet& sheet, const std::optional<Meter>& meter) {
  MidiSequence sequence = headOfMidi(head);
  addBeats(sequence, sheet, meter);
  return sequence;
}

}  // namespace korvel
