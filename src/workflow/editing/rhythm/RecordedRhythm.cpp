// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/editing/rhythm/RecordedRhythm.h"

#include <utility>

#include "analysis/beats/SpanNames.h"
#include "model/recorded/SongRecording.h"
#include "model/songs/QBSong.h"
#include "rhythm/RhythmReader.h"
#include "rhythm/stored/NoteCorrections.h"
#include "workflow/session/EditRefused.h"

namespace korvel {
namespace {

using platform::phrase;

SongRecording& recordingOf(const QBSong& song) {
  if (const auto why = RecordedRhythm::refusal(song)) throw EditRefused(*why);
  return *song.recording();
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
  tellPitchClasses(heard.notes, heard.rhythm.reading);
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
