// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/editing/rhythm/RecordedRhythm.h"

#include <algorithm>
#include <set>
#include <utility>

#include "analysis/beats/SpanNames.h"
#include "analysis/beats/SpanProbabilities.h"
#include "fingering/Fingering.h"
#include "model/instruments/SongTuning.h"
#include "model/recorded/SongRecording.h"
#include "model/songs/QBSong.h"
#include "rhythm/RhythmReader.h"
#include "rhythm/stored/NoteCorrections.h"
#include "workflow/editing/fingers/PlayedNotes.h"
#include "workflow/session/EditRefused.h"

namespace korvel {
namespace {

using platform::phrase;

SongRecording& recordingOf(const QBSong& song) {
  if (const auto why = RecordedRhythm::refusal(song)) throw EditRefused(*why);
  return *song.recording();
}

using Placed = std::vector<fingering::Note>;

/// Whether the notes are where the strings sound them, behind the capo.
bool areOn(const OpenPitches& open, int capo, const Placed& notes) {
  return std::ranges::all_of(notes, [&](const fingering::Note& note) {
    if (note.string < 0) return true;
    return note.fret >= capo &&
           note.pitch == open[static_cast<std::size_t>(note.string)] + note.fret;
  });
}

/// Whether the song has kept the pitches that were heard rather than the frets that they got.
bool keepsSound(QBSong& song, const Placed& notes) {
  std::set<int> pitches;
  std::set<std::pair<int, int>> places;
  for (const fingering::Note& note : notes) {
    pitches.insert(note.pitch);
    places.emplace(note.string, note.fret);
  }
  const PlayedNotes played(song);
  const auto hasPitch = [&](const auto& note) { return pitches.contains(note.pitch); };
  const auto hasPlace = [&](const auto& note) { return places.contains({note.string, note.fret}); };
  return std::ranges::count_if(played.all(), hasPitch) >=
         std::ranges::count_if(played.all(), hasPlace);
}

/// A song that got other strings since it was heard has the notes on these.
void placeOn(QBSong& song, Placed& notes) {
  const OpenPitches open = openStringsOf(&song).pitches();
  const int capo = capoOf(song);
  if (areOn(open, capo, notes) || !keepsSound(song, notes)) return;
  fingering::FingeringOptions options;
  options.capo = capo;
  fingering::Fingering(open, options).place(notes);
}

/// The notes of a band are those of its chords' grips, which say nothing of how sure these are.
void keepSureness(const rhythm::Reading& before, rhythm::Reading& now) {
  if (before.beats.empty()) return;
  for (rhythm::ChordSpan& span : now.chords) {
    const double tick = before.tickOf(now.secondsOf((span.from + span.to) / 2.0));
    const auto old = std::ranges::upper_bound(before.chords, tick, {},
                                              [](const auto& each) { return double(each.to); });
    if (old == before.chords.end() || old->root != span.root) continue;
    span.probability = old->probability;
    span.bass = old->bass;
  }
}

}  // namespace

RecordedRhythm::RecordedRhythm(QBSong& song) : m_recording(recordingOf(song)) {
  auto notes = rhythm::heardNotes(m_recording.notes());
  auto stored = rhythm::storedRhythm(m_recording.rhythm());
  if (!notes || !stored)
    throw EditRefused(phrase("Message",
                             "%1: what was heard in its recording cannot be read; hear the "
                             "recording again"),
                      song.title());
  const auto corrections =
      song.hasCorrections() ? rhythm::noteCorrections(song.corrections()) : std::nullopt;
  m_notes = corrections ? rhythm::notesBy(*notes, *corrections) : std::move(notes->taken);
  placeOn(song, m_notes);
  m_stored = std::move(*stored);
}

std::optional<platform::UserText> RecordedRhythm::refusal(const QBSong& song) {
  if (song.recording()) return {};
  return platform::UserText(
      phrase("Message",
             "%1: it is not known what was heard in a recording of it, so its rhythm cannot be "
             "read; import the recording again"),
      song.title());
}

HeardSound RecordedRhythm::readBy(const rhythm::Wishes& wishes) const {
  HeardSound heard;
  heard.notes = m_notes;
  heard.rhythm = rhythm::rhythmOf(m_notes, wishes);
  rhythm::Reading& reading = heard.rhythm.reading;
  tellPitchClasses(heard.notes, reading);
  if (m_recording.isBand())
    keepSureness(m_stored.rhythm.reading, reading);
  else
    tellProbabilities(heard.notes, reading);
  heard.wishes = wishes;
  heard.seconds = m_recording.seconds();
  heard.tuningOffset = m_recording.tuningOffset();
  heard.capo = m_recording.capo();
  return heard;
}

void RecordedRhythm::store(const HeardSound& heard) const {
  m_recording.setRhythm(rhythm::bytesOf(heard.rhythm, heard.wishes));
}

}  // namespace korvel
