// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/editing/fingers/SongFingers.h"

#include <algorithm>
#include <stdexcept>
#include <string>

#include "arrange/hands/HandGrip.h"
#include "fingering/Alternatives.h"
#include "fingering/Fingering.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "workflow/editing/BeatBars.h"
#include "workflow/editing/ChangedTones.h"
#include "workflow/editing/fingers/PlayedNotes.h"
#include "workflow/editing/fingers/RestrungSong.h"
#include "workflow/session/Edit.h"
#include "workflow/session/EditRefused.h"
#include "workflow/session/SongInWork.h"

namespace korvel {
namespace {

using fingering::Note;
using fingering::Settled;
using platform::phrase;

/// A phrase reaches no further from what is changed, and ends where so long nothing sounds.
constexpr double kSecondsOfPhrase = 6;
constexpr double kSecondsOfRest = 1;

/// What counts as a move to other strings: half of the notes by one string, if anything does.
constexpr double kFarEnough = 0.5;

QBChord& chordIn(QBSong& song, std::size_t index) { return *song.allChords()[index]; }

double meanString(std::span<const Note> notes) {
  double sum = 0;
  for (const Note& note : notes) sum += note.string;
  return sum / static_cast<double>(std::max<std::size_t>(notes.size(), 1));
}

bool allHaveStrings(std::span<const Note> notes) {
  return std::ranges::all_of(notes, [](const Note& note) { return note.string >= 0; });
}

/// The notes of a chord in a grip, of which frets count from the capo.
std::vector<Note> heldIn(const fingering::Grip& grip, std::span<const Note> notes, int capo) {
  std::vector<Note> held(notes.begin(), notes.end());
  for (std::size_t i = 0; i < held.size(); ++i) {
    held[i].string = grip.string[i];
    held[i].fret = grip.fret[static_cast<std::size_t>(held[i].string)] + capo;
  }
  return held;
}

TonePlaces placesOf(std::span<const Note> notes) {
  TonePlaces places;
  for (const Note& note : notes) places.push_back(TonePlace{note.string, note.fret});
  return places;
}

/// Those that four fingers hold come alone, unless there are none.
std::vector<std::vector<Note>> shapesOf(const PlayedNotes& notes, std::size_t chord) {
  const auto sounding = notes.ofChord(chord);
  const fingering::FingeringOptions& options = notes.options();
  OpenPitches open = notes.open();
  for (int& pitch : open) pitch += options.capo;
  std::vector<int> pitches;
  for (const Note& note : sounding) pitches.push_back(note.pitch);
  std::vector<std::vector<Note>> playable, all;
  for (const auto& grip : fingering::gripsByEase(open, options.frets - options.capo, pitches)) {
    all.push_back(heldIn(grip, sounding, options.capo));
    if (HandGrip(placesOf(all.back())).isPlayable()) playable.push_back(all.back());
  }
  return playable.empty() ? all : playable;
}

bool isSame(std::span<const Note> notes, std::span<const Note> others) {
  return std::ranges::equal(notes, others, {}, &Note::string, &Note::string);
}

/// The next place for a phrase on higher or lower strings; none when there is no more.
const std::vector<Note>* nextOf(const std::vector<std::vector<Note>>& all,
                                std::span<const Note> now, int by) {
  const double from = meanString(now);
  const std::vector<Note>* next = nullptr;
  const auto distance = [&](const std::vector<Note>& notes) {
    const double far = by * (meanString(notes) - from);
    return far < kFarEnough ? 1e3 - far : far;  // little is better than nothing
  };
  for (const auto& notes : all) {
    if (!allHaveStrings(notes) || by * (meanString(notes) - from) <= 0) continue;
    if (!next || distance(notes) < distance(*next)) next = &notes;
  }
  return next;
}

}  // namespace

SongFingers::SongFingers(QBTabMgr& db, QBSong& song) : m_db(db), m_song(&song) {
  song.forgetCaches();
}

SongFingers::~SongFingers() = default;

void SongFingers::edit(const platform::Phrase& title, const std::function<void()>& work) {
  if (SongInWork::is(*m_song))
    throw EditRefused(phrase("Message", "%1: is still being heard; edit it when that has ended"),
                      m_song->title());
  Edit edit(*m_song, title);
  work();
  m_song->forgetCaches();
  edit.redraw();
  edit.save();
}

void SongFingers::requireChord(int chord) const {
  if (chord < 0 || chord >= std::ssize(m_song->allChords()))
    throw std::out_of_range("no chord " + std::to_string(chord));
}

bool SongFingers::isEdited(std::size_t chord) const { return chordIn(*m_song, chord).isEdited(); }

// ---- choosing

/// Everything stays but what is not edited in a range.
Settled SongFingers::settledBut(const PlayedNotes& notes, Range range) const {
  Settled settled;
  settled.positions = notes.hands();
  for (const Note& note : notes.all()) settled.strings.push_back(note.string);
  for (std::size_t i = range.first; i <= range.last; ++i)
    if (!isEdited(i))
      std::fill_n(settled.strings.begin() + static_cast<std::ptrdiff_t>(notes.firstOf(i)),
                  notes.ofChord(i).size(), Settled::kAnyString);
  return settled;
}

SongFingers::Range SongFingers::phraseAround(const PlayedNotes& notes, Range range) const {
  const auto endOf = [&](std::size_t chord) {
    double end = notes.onsetOf(chord);
    for (const Note& note : notes.ofChord(chord)) end = std::max(end, note.end);
    return end;
  };
  Range around = range;
  double begin = notes.onsetOf(range.first);
  for (std::size_t i = range.first; i-- > 0;) {
    if (notes.onsetOf(i) < notes.onsetOf(range.first) - kSecondsOfPhrase) break;
    if (notes.ofChord(i).empty()) continue;
    if (endOf(i) + kSecondsOfRest < begin) break;
    begin = notes.onsetOf(around.first = i);
  }
  double end = endOf(range.last);
  for (std::size_t i = range.last + 1; i < notes.chords(); ++i) {
    if (notes.onsetOf(i) > notes.onsetOf(range.last) + kSecondsOfPhrase) break;
    if (notes.ofChord(i).empty()) continue;
    if (end + kSecondsOfRest < notes.onsetOf(i)) break;
    end = std::max(end, endOf(around.last = i));
  }
  return around;
}

/// What is not edited there, around all the rest.
void SongFingers::finger(Range range) {
  const PlayedNotes notes(*m_song);
  Placed placed(notes.all().begin(), notes.all().end());
  fingering::Fingering(notes.open(), notes.options()).place(placed, settledBut(notes, range));
  for (std::size_t i = range.first; i <= range.last; ++i)
    if (!isEdited(i))
      notes.move(i, std::span(placed).subspan(notes.firstOf(i), notes.ofChord(i).size()));
  tonesMoved(range);
}

// ---- what follows

void SongFingers::settle(const PlayedNotes& notes, std::size_t chord,
                         std::span<const Note> placed) {
  notes.move(chord, placed);
  chordIn(*m_song, chord).setEdited(true);
}

/// What is placed stands for all chords of the range, and the phrase around it follows.
void SongFingers::settleAndFinger(const platform::Phrase& title, const PlayedNotes& notes,
                                  Range range, std::span<const Note> placed) {
  edit(title, [&] {
    const std::size_t first = notes.firstOf(range.first);
    for (std::size_t i = range.first; i <= range.last; ++i)
      if (const auto count = notes.ofChord(i).size(); count > 0)
        settle(notes, i, placed.subspan(notes.firstOf(i) - first, count));
    finger(phraseAround(notes, range));
  });
}

/// What rings on a string ends where another tone is struck there now, behind the range too.
void SongFingers::tonesMoved(Range range) {
  for (std::size_t i = range.first; i <= range.last; ++i) dropPatterns(chordIn(*m_song, i));
  if (BeatBars::areIn(*m_song)) BeatBars(m_db, *m_song).finish();
}

// ---- edits

void SongFingers::setHand(int chord, std::optional<int> fret) {
  requireChord(chord);
  if (fret && (*fret < kAnywhere || *fret > kHighestHand))
    throw EditRefused(phrase("Message", "a hand is at a fret from 1 to %1"), kHighestHand);
  const auto first = static_cast<std::size_t>(chord);
  edit(phrase("UndoAction", "Set Hand Position"), [&] {
    QBChord& marked = chordIn(*m_song, first);
    fret ? marked.setHandFret(*fret) : marked.clearHandFret();
    std::size_t last = first;
    const std::size_t chords = m_song->allChords().size();
    while (last + 1 < chords && !chordIn(*m_song, last + 1).hasHandFret()) ++last;
    finger({first, last});
  });
}

void SongFingers::changeShape(int chord, int by) {
  requireChord(chord);
  const auto index = static_cast<std::size_t>(chord);
  const PlayedNotes notes(*m_song);
  const auto shapes = shapesOf(notes, index);
  const auto now = std::ranges::find_if(
      shapes, [&](const auto& shape) { return isSame(shape, notes.ofChord(index)); });
  const bool isKnown = now != shapes.end();
  if (notes.ofChord(index).empty() || shapes.empty() || (isKnown && shapes.size() == 1))
    throw EditRefused(phrase("Message", "there is no other way to hold these notes"));
  const auto count = std::ssize(shapes);
  // From a shape that is none of them the first one is the next.
  const auto at = isKnown ? now - shapes.begin() + by : by > 0 ? by - 1 : by;
  const auto& next = shapes[static_cast<std::size_t>((at % count + count) % count)];
  settleAndFinger(phrase("UndoAction", "Change Shape"), notes, {index, index}, next);
}

void SongFingers::moveTone(int chord, int string, int by) {
  requireChord(chord);
  const auto index = static_cast<std::size_t>(chord);
  const PlayedNotes notes(*m_song);
  const auto tones = notes.ofChord(index);
  const auto moved = std::ranges::find(tones, string, &Note::string);
  if (moved == tones.end()) throw EditRefused(phrase("Message", "no tone sounds on that string"));
  const int to = string + by;
  const int fret =
      to < 0 || to >= kStrings ? -1 : moved->pitch - notes.open()[static_cast<std::size_t>(to)];
  if (fret < notes.options().capo || fret > notes.options().frets)
    throw EditRefused(phrase("Message", "that string has no fret for this tone; try another one"));
  // The others stay, unless they are in the way.
  Placed placed(tones.begin(), tones.end());
  auto& tone = placed[static_cast<std::size_t>(moved - tones.begin())];
  tone.string = to;
  tone.fret = fret;
  if (std::ranges::count(placed, to, &Note::string) > 1) {
    Settled settled;
    for (const Note& note : placed)
      settled.strings.push_back(&note == &tone ? to : Settled::kAnyString);
    fingering::Fingering(notes.open(), notes.options()).place(placed, settled);
    if (!allHaveStrings(placed) || !HandGrip(placesOf(placed)).isPlayable())
      throw EditRefused(
          phrase("Message", "that string sounds already, and the others cannot make room"));
  }
  settleAndFinger(phrase("UndoAction", "Move Tone"), notes, {index, index}, placed);
}

void SongFingers::movePhrase(int first, int last, int by) {
  requireChord(first);
  requireChord(last);
  const Range range{static_cast<std::size_t>(first), static_cast<std::size_t>(last)};
  const PlayedNotes notes(*m_song);
  const std::size_t begin = notes.firstOf(range.first);
  const std::size_t end = notes.firstOf(range.last) + notes.ofChord(range.last).size();
  const auto now = notes.all().subspan(begin, end - begin);
  const auto all = fingering::alternatives(notes.open(), notes.options(), now);
  const std::vector<Note>* next = nextOf(all, now, by);
  if (!next)
    throw EditRefused(by > 0 ? phrase("Message", "these notes have no place on higher strings")
                             : phrase("Message", "these notes have no place on lower strings"));
  settleAndFinger(phrase("UndoAction", "Move Phrase"), notes, range, *next);
}

void SongFingers::fingerAnew(int first, int last) {
  requireChord(first);
  requireChord(last);
  edit(phrase("UndoAction", "Finger Anew"), [&] {
    finger({static_cast<std::size_t>(first), static_cast<std::size_t>(last)});
  });
}

// ---- other strings

int SongFingers::retune(const Strings& strings, Kept kept) {
  int dropped = 0;
  edit(strings.tuning ? phrase("UndoAction", "Retune Song") : phrase("UndoAction", "Move Capo"),
       [&] {
         RestrungSong song(*m_song, strings);
         if (kept == Kept::sound)
           dropped = song.keepSound();
         else
           song.keepFrets();
         m_song->forgetCaches();
         if (const std::size_t chords = m_song->allChords().size(); chords > 0)
           tonesMoved({0, chords - 1});
       });
  return dropped;
}

}  // namespace korvel
