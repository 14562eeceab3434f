// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/editing/rhythm/SongRhythm.h"

#include <algorithm>
#include <utility>

#include "analysis/beats/ChordsOnBeats.h"
#include "analysis/chords/BlockChords.h"
#include "model/instruments/SongTuning.h"
#include "model/recorded/SongRecording.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "platform/sound/SampleRate.h"
#include "precise/Blocks.h"
#include "precise/Findings.h"
#include "workflow/editing/rhythm/HeardPart.h"
#include "workflow/editing/rhythm/LaidBars.h"
#include "workflow/editing/rhythm/RelaidSong.h"
#include "workflow/editing/rhythm/RhythmWords.h"
#include "workflow/session/Edit.h"
#include "workflow/session/EditRefused.h"
#include "workflow/session/SongInWork.h"

namespace korvel {
namespace {

using platform::phrase;
using platform::UserText;

QBSong& heardWhole(QBSong& song) {
  if (SongInWork::is(song))
    throw EditRefused(phrase("Message", "%1: is still being heard; edit it when that has ended"),
                      song.title());
  return song;
}

/// The slices of notes of which no sound is known any more.
BlockChords slicesOf(std::vector<fingering::Note> notes, const SongRecording& recording,
                     const QBSong& song) {
  fingering::FingeringOptions guitar;
  guitar.capo = capoOf(song);
  guitar.frets = fingering::FingeringOptions::kMostFrets;
  double seconds = recording.seconds();
  for (const fingering::Note& note : notes) seconds = std::max(seconds, note.end);
  precise::Findings found;
  found.curves = precise::NoteCurves::fading(notes);
  found.frames = precise::frameAt(seconds);
  found.notes = std::move(notes);
  std::vector<precise::BlockTones> blocks;
  precise::gatherBlocks(found, static_cast<std::size_t>(seconds * platform::kSampleRate),
                        openStringsOf(&song).pitches(), guitar, blocks)
      .finish();
  return BlockChords(std::move(blocks));
}

}  // namespace

SongRhythm::SongRhythm(QBSong& song) : m_song(&heardWhole(song)), m_recorded(song) {}

SongRhythm::~SongRhythm() = default;

double SongRhythm::tempo() const {
  return m_song->isOnBeats() ? m_song->tempo() : m_recorded.reading().tempo();
}

void SongRhythm::change(const platform::Phrase& title,
                        const std::function<void(WishedRhythm&)>& wish) {
  rhythm::Reading reading = m_recorded.reading();
  rhythm::Wishes wishes = m_recorded.wishes();
  if (isLaidOtherwise(*m_song, reading)) {
    readAsLaid(*m_song, reading);
    wishAsLaid(reading, m_recorded.reading(), wishes);
  }
  WishedRhythm wished(reading, wishes, tempo());
  wish(wished);
  readBy(title, wished.wishes());
}

void SongRhythm::layIntoBars() {
  change(phrase("UndoAction", "Lay Into Bars"), [](WishedRhythm&) {});
}

void SongRhythm::readBy(const platform::Phrase& title, const rhythm::Wishes& wishes) {
  HeardSound heard = m_recorded.readBy(wishes);
  const HeardPart part(*m_song, heard.notes);
  if (!part.isAsHeard()) refuseArranged();
  HeardSound written = heard;
  part.cut(written.rhythm.reading, written.notes);
  if (written.rhythm.reading.events.empty())
    throw EditRefused(phrase("Message", "%1: too little was heard in it to read a rhythm"),
                      m_song->title());
  ChordsOnBeats supply(written);
  const rhythm::Reading& reading = heard.rhythm.reading;
  relay(title, supply, &heard, missedTempoText(reading, wishes).value_or(rhythmText(reading)));
}

void SongRhythm::layIntoSlices() {
  std::vector<fingering::Note> notes = m_recorded.notes();
  const HeardPart part(*m_song, notes);
  if (!part.isAsHeard()) refuseArranged();
  part.cut(notes);
  BlockChords supply = slicesOf(std::move(notes), m_recorded.recording(), *m_song);
  if (supply.size() == 0)
    throw EditRefused(phrase("Message", "%1: too little was heard in it to read a rhythm"),
                      m_song->title());
  relay(phrase("UndoAction", "Lay Into Slices"), supply, nullptr,
        phrase("Rhythm", "slices of 0.37 s"));
}

void SongRhythm::refuseArranged() const {
  throw EditRefused(phrase("Message",
                           "%1: was arranged from what was heard, which a new reading would undo; "
                           "change the rhythm of the song that it was made from"),
                    m_song->title());
}

void SongRhythm::relay(const platform::Phrase& title, ChordSupply& supply, const HeardSound* heard,
                       const UserText& line) {
  Edit edit(*m_song, title);
  if (heard) m_recorded.store(*heard);
  RelaidSong(*m_song).fillFrom(supply);
  edit.redraw();
  edit.done({phrase("Log", "%1: %2."), m_song->title(), line});
}

}  // namespace korvel
