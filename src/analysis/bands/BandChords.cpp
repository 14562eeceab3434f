// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/bands/BandChords.h"

#include <algorithm>
#include <string_view>
#include <tuple>

#include "chords/BarLines.h"
#include "chords/ChordFinder.h"
#include "rhythm/harmony/ChordTones.h"

namespace korvel {
namespace {

using fingering::Note;
using rhythm::ChordSpan;
using rhythm::kTicksOfBeat;
using rhythm::Quality;
using rhythm::Reading;

/// Of a stroke as a note: what is weaker is no evidence, and how loud it is beside notes.
constexpr float kLeastOfStrokes = 0.3F;
constexpr float kLoudOfStroke = 1.5F;
constexpr float kSureOfStroke = 0.55F;
constexpr float kLowStroke = 0.5F;
constexpr int kPitchOfLowStroke = 40;
constexpr int kPitchOfStroke = 60;
constexpr double kLengthOfStroke = 0.25;  // seconds

Note noteOf(const chords::Stroke& stroke) {
  Note note;
  note.onset = stroke.time;
  note.end = stroke.time + kLengthOfStroke;
  note.pitch = stroke.low > kLowStroke ? kPitchOfLowStroke : kPitchOfStroke;
  note.strength = kLoudOfStroke * stroke.strength;
  note.probability = std::min(1.0F, kSureOfStroke * stroke.strength);
  return note;
}

std::vector<chords::BeatEvidence> evidence(const chords::BandSound& sound,
                                           std::span<const Note> notes, const Reading& reading) {
  std::vector<chords::BeatEvidence> beats = chords::evidenceOf(sound, reading.beats);
  const std::vector<rhythm::Sounding> sounding = rhythm::soundingBetween(reading.beats, notes);
  const auto bar = static_cast<std::size_t>(std::max(reading.metre.beats, 1));
  for (std::size_t i = 0; i < beats.size(); ++i) {
    beats[i].notes = {sounding[i].weights, sounding[i].bass};
    beats[i].onBarLine = (i + bar - reading.firstBar % bar) % bar == 0;
  }
  return beats;
}

/// What a reading knows of it without its pitch classes.
Quality qualityOf(chords::Kind kind) {
  const std::string_view plain = chords::of(kind).plain;
  if (plain == "7") return Quality::seventh;
  if (plain == "maj7") return Quality::majorSeventh;
  if (plain == "min7" || plain == "hdim7") return Quality::minorSeventh;
  return plain == "min" || plain.starts_with("dim") ? Quality::minor : Quality::major;
}

int tickOfBeat(const Reading& reading, std::size_t beat) {
  return (static_cast<int>(beat) - static_cast<int>(reading.firstBar)) * kTicksOfBeat;
}

}  // namespace

double surenessOf(std::span<const Note> notes) {
  double sum = 0;
  for (const Note& note : notes) sum += static_cast<double>(note.probability);
  return notes.empty() ? 1 : sum / static_cast<double>(notes.size());
}

std::vector<Note> withStrokes(std::span<const Note> notes,
                              std::span<const chords::Stroke> strokes) {
  std::vector<Note> all(notes.begin(), notes.end());
  for (const chords::Stroke& stroke : strokes)
    if (stroke.strength >= kLeastOfStrokes) all.push_back(noteOf(stroke));
  std::ranges::stable_sort(all, {},
                           [](const Note& note) { return std::tuple(note.onset, note.pitch); });
  return all;
}

void tellBandBars(const chords::BandSound& sound, std::span<const Note> notes, Reading& reading) {
  const chords::BarGrid read{static_cast<std::size_t>(std::max(reading.metre.beats, 1)),
                             reading.firstBar};
  const chords::BarGrid bars = chords::barsByChords(evidence(sound, notes, reading), read);
  reading.metre.beats = static_cast<int>(bars.beats);
  if (bars.first < reading.beats.size()) reading.firstBar = bars.first;
}

void tellBandChords(const chords::BandSound& sound, std::span<const Note> notes, Reading& reading) {
  const chords::FoundChords found = chords::findChords(evidence(sound, notes, reading));
  reading.chords.clear();
  for (const chords::FoundSpan& span : found.spans) {
    reading.chords.push_back({tickOfBeat(reading, span.from), tickOfBeat(reading, span.to),
                              span.chord.root, qualityOf(span.chord.kind),
                              span.chord.pitchClasses(), span.probability, span.chord.bass});
  }
  reading.key.reset();
  if (found.tonic >= 0) reading.key = {found.tonic, found.mode == chords::Mode::minor};
}

}  // namespace korvel
