// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/editing/drawn/DrawnChords.h"

#include <algorithm>
#include <array>
#include <stdexcept>

#include "model/instruments/SongTuning.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/songs/ToneOrder.h"
#include "model/store/QBTabMgr.h"
#include "music/ChordStep.h"
#include "workflow/editing/BeatBars.h"
#include "workflow/editing/drawn/DrawnInBars.h"
#include "workflow/editing/drawn/DrawnInSlices.h"
#include "workflow/session/EditRefused.h"

namespace korvel {
namespace {

using platform::phrase;

/// Of a tone that has no other one to take it from: a note that is played well.
constexpr double kAmp = 1e6;
/// How far a hand reaches on both sides of a note, in chords.
constexpr int kChordsOfHand = 8;

QBTone& toneAt(const QBChord& chord, int string) {
  QBTone* tone = chord.hold() ? chord.hold()->findToneByString(string) : nullptr;
  if (!tone) throw std::out_of_range("there is no such tone");
  return *tone;
}

}  // namespace

std::unique_ptr<DrawnChords> DrawnChords::of(QBTabMgr& db, QBSong& song) {
  song.forgetCaches();
  if (BeatBars::areIn(song)) return std::make_unique<DrawnInBars>(db, song);
  return std::make_unique<DrawnInSlices>(db, song);
}

DrawnChords::DrawnChords(QBTabMgr& db, QBSong& song)
    : m_db(db), m_song(song), m_before(song.allChords()) {}

DrawnChords::~DrawnChords() = default;

QBChord& DrawnChords::chordOf(const ToneIndex& place) const {
  return *m_before.at(static_cast<std::size_t>(place.chord));
}

DrawnNote DrawnChords::take(const ToneIndex& place) {
  QBChord& chord = chordOf(place);
  QBTone& tone = toneAt(chord, place.string);
  const auto open = openStringsOf(&m_song).pitches();
  DrawnNote note;
  note.pitch = open.at(static_cast<std::size_t>(place.string)) + tone.fret();
  note.begin = beginOf(chord);
  note.steps = stepsOf(place);
  note.string = place.string;
  note.amp = tone.amp();
  note.active = tone.isActive();
  while (chord.hold()->findToneByString(place.string))
    chord.hold()->deleteToneOfString(place.string);
  changed(chord);
  return note;
}

void DrawnChords::put(const DrawnNote& note) {
  QBChord* chord = chordAt(note.begin);
  if (!chord) throw EditRefused(phrase("Message", "the song does not reach to there"));
  std::array<bool, kStrings> isFree{};
  for (int string = 0; string < kStrings; ++string)
    isFree[static_cast<std::size_t>(string)] =
        !chord->hold() || !chord->hold()->findToneByString(string);
  const StringChoice choice = choiceFor(note);
  const auto string = choice.best(isFree);
  if (!string) throw EditRefused(phrase("Message", "no string is free for that note there"));
  const double amp = note.amp > 0 ? note.amp : loudnessNear(*chord);
  if (!chord->hold()) chord->setHold(m_db.createHold());
  chord->hold()
      ->addTone(*string, choice.frets[static_cast<std::size_t>(*string)], amp)
      ->setActive(note.active);
  came(*chord, *string, note.steps);
  changed(*chord);
}

/// On its own string, or as a hand would play it among the notes that are there.
StringChoice DrawnChords::choiceFor(const DrawnNote& note) const {
  const auto open = openStringsOf(&m_song).pitches();
  std::vector<fingering::Note> fixed;
  double at = 0;
  double onset = 0;
  for (const auto& chord : m_before) {
    if (chord->isDeleted()) continue;
    if (beginOf(*chord) <= note.begin) onset = at;
    if (chord->hold())
      for (const QBTone* tone : chord->hold()->tones())
        fixed.push_back({.onset = at,
                         .end = at + 1,
                         .pitch = open.at(static_cast<std::size_t>(
                                      std::clamp(tone->string(), 0, kStrings - 1))) +
                                  tone->fret(),
                         .string = tone->string(),
                         .fret = tone->fret()});
    at += 2.0 / kChordsOfHand;
  }
  const fingering::Note added{.onset = onset, .end = onset + 1, .pitch = note.pitch};
  const int capo = capoOf(m_song);
  StringChoice choice = stringChoices(fixed, std::span(&added, 1), open, capo).front();
  if (note.string >= 0) choice.wished = note.string;
  return choice;
}

double DrawnChords::loudnessNear(const QBChord& chord) const {
  const int begin = beginOf(chord);
  double amp = 0;
  for (const auto& before : m_before) {
    if (before->isDeleted() || beginOf(*before) > begin) continue;
    if (const Tones tones = loudestFirst(*before); !tones.empty()) amp = tones.front()->amp();
  }
  return amp > 0 ? amp : kAmp;
}

}  // namespace korvel
