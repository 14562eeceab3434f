// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/editing/fingers/RestrungSong.h"

#include <algorithm>
#include <vector>

#include "fingering/Fingering.h"
#include "model/instruments/QBTuning.h"
#include "model/instruments/SongTuning.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/songs/ToneOrder.h"
#include "music/NoteName.h"
#include "music/Pitch.h"
#include "workflow/editing/ChangedTones.h"
#include "workflow/editing/fingers/SongFingers.h"
#include "workflow/session/EditRefused.h"

namespace korvel {
namespace {

using fingering::FingeringOptions;
using fingering::Note;
using platform::phrase;

/// By how many half tones all strings sound higher than before, when it is the same for all.
std::optional<int> evenStep(const OpenPitches& open, const OpenPitches& before) {
  const int by = open.front() - before.front();
  const bool isEven =
      std::ranges::equal(open, before, [by](int pitch, int other) { return pitch - other == by; });
  return isEven ? std::optional(by) : std::nullopt;
}

}  // namespace

RestrungSong::RestrungSong(QBSong& song, const Strings& wanted)
    : m_song(song), m_wanted(wanted), m_notes(song) {
  m_open = wanted.tuning ? wanted.tuning->openStrings().pitches() : m_notes.open();
  m_capo = wanted.capo.value_or(m_notes.options().capo);
  m_by = wanted.capo ? m_capo - capoOf(song) : 0;
}

/// With as many frets as its highest note needs.
FingeringOptions RestrungSong::guitar() const {
  FingeringOptions guitar = m_notes.options();
  guitar.capo = m_capo;
  int highest = 0;
  for (const Note& note : m_notes.all())
    highest = std::max(highest, note.pitch - std::ranges::max(m_open));
  guitar.frets = std::clamp(highest, guitar.frets, FingeringOptions::kMostFrets);
  return guitar;
}

void RestrungSong::requireRoomForSound() const {
  if (!m_wanted.capo || m_notes.all().empty()) return;
  const auto notes = m_notes.all();
  const int lowest = std::ranges::min_element(notes, {}, &Note::pitch)->pitch;
  const int highestCapo = lowest - std::ranges::min(m_open);
  if (m_capo <= highestCapo) return;
  if (highestCapo < 0)
    throw EditRefused(phrase("Message", "the lowest note, %1, has no place in this tuning"),
                      noteName(lowest));
  throw EditRefused(phrase("Message",
                           "the lowest note, %1, lies below a capo at fret %2; fret %3 is the "
                           "highest one for it"),
                    noteName(lowest), m_capo, highestCapo);
}

int RestrungSong::keepSound() {
  requireRoomForSound();
  const FingeringOptions options = guitar();
  std::vector<Note> placed(m_notes.all().begin(), m_notes.all().end());
  fingering::Settled settled;
  settled.positions = m_notes.hands();
  const auto chords = m_song.allChords();
  for (std::size_t i = 0; i < m_notes.chords(); ++i) {
    for (const Note& note : m_notes.ofChord(i)) {
      const int fret = note.pitch - m_open[static_cast<std::size_t>(note.string)];
      const bool stays = chords[i]->isEdited() && fret >= options.capo && fret <= options.frets;
      settled.strings.push_back(stays ? note.string : fingering::Settled::kAnyString);
    }
  }
  // All of them are meant, however softly they were played.
  for (Note& note : placed) note.strength = 1;
  string();
  fingering::Fingering(m_open, options).place(placed, settled);
  int dropped = 0;
  for (std::size_t i = 0; i < m_notes.chords(); ++i)
    dropped += m_notes.moveOrDrop(
        i, std::span(placed).subspan(m_notes.firstOf(i), m_notes.ofChord(i).size()), m_open);
  return dropped;
}

void RestrungSong::requireRoomForFrets() const {
  if (!m_wanted.capo || m_notes.all().empty()) return;
  const auto [low, high] = std::ranges::minmax_element(m_notes.all(), {}, &Note::fret);
  if (low->fret + m_by < m_capo)
    throw EditRefused(phrase("Message", "some frets lie below the capo that the song has"));
  if (high->fret + m_by > FingeringOptions::kMostFrets)
    throw EditRefused(
        phrase("Message",
               "with a capo at fret %1 the highest note would be at fret %2, and the neck ends at "
               "fret %3"),
        m_capo, high->fret + m_by, FingeringOptions::kMostFrets);
}

/// Silent tones go where the neck ends.
void RestrungSong::moveFrets() {
  // A copy: what the chords become makes the song read them anew.
  const auto chords = m_song.allChords();
  for (const auto& chord : chords) {
    TonePlaces places;
    for (const auto& tone : tonesOf(*chord)) {
      const int fret = addNotes(tone->fret(), m_by);
      const bool isThere =
          tone->isActive() || (fret >= m_capo && fret <= FingeringOptions::kMostFrets);
      places.push_back(isThere ? std::optional(TonePlace{tone->string(), fret}) : std::nullopt);
    }
    moveTones(*chord, places);
    if (chord->handFret() != SongFingers::kAnywhere)
      chord->setHandFret(std::clamp(chord->handFret() + m_by, 1, SongFingers::kHighestHand));
  }
}

void RestrungSong::nameAnew() {
  const auto even = evenStep(m_open, m_notes.open());
  // A copy: what the chords become makes the song read them anew.
  const auto chords = m_song.allChords();
  for (const auto& chord : chords) {
    if (even && chord->hasBaseTone())
      chord->setBaseTone(pitchClass(chord->baseTone() + *even + m_by));
    else if (!even && chord->harmony())
      readAnew(*chord);
  }
  if (!even || !m_song.hasKey()) return;
  const int key = m_song.key();
  m_song.setKey(pitchClass(key + *even + m_by) + (key < kNotesPerOctave ? 0 : kNotesPerOctave));
}

void RestrungSong::keepFrets() {
  requireRoomForFrets();
  if (m_by != 0) moveFrets();
  string();
  m_song.forgetCaches();
  nameAnew();
}

void RestrungSong::string() {
  if (m_wanted.tuning) m_song.setTuning(m_wanted.tuning);
  if (m_wanted.capo) m_song.setCapo(m_capo);
}

}  // namespace korvel
