// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/editing/doubts/PassageNames.h"

#include "analysis/beats/SpanNames.h"
#include "model/book/QBHarmony.h"
#include "model/recorded/SongRecording.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "platform/sound/SampleRate.h"
#include "workflow/editing/rhythm/RecordedRhythm.h"
#include "workflow/session/EditRefused.h"

namespace korvel {
namespace {

/// Beats are stored to the sample.
constexpr double kSample = 1.0 / platform::kSampleRate;

}  // namespace

PassageNames::PassageNames(QBSong& song) : m_song(&song), m_before(readingOf(song)) {}

PassageNames::~PassageNames() = default;

/// Without passages where the song has none, or none that can be read.
rhythm::Reading PassageNames::readingOf(QBSong& song) const try {
  if (!song.isOnBeats()) return {};
  const RecordedRhythm recorded(song);
  rhythm::Reading reading = recorded.reading();
  tellPitchClasses(recorded.notes(), reading);
  return reading;
} catch (const EditRefused&) {
  return {};
}

void PassageNames::follow() {
  const rhythm::Reading after = readingOf(*m_song);
  for (std::size_t i = 0; i < m_before.chords.size() && i < after.chords.size(); ++i)
    if (typeOf(m_before.chords[i]) != typeOf(after.chords[i]))
      rename(m_before.chords[i], after.chords[i]);
}

void PassageNames::rename(const rhythm::ChordSpan& before, const rhythm::ChordSpan& after) {
  const QBTabMgr& db = QBTabMgr::of(*m_song);
  const QBHarmony* known = harmonyOf(db, before);
  QBHarmony* named = harmonyOf(db, after);
  const double from = m_before.secondsOf(before.from) - kSample;
  const double to = m_before.secondsOf(before.to) - kSample;
  if (!known || !named) return;
  const auto chords = m_song->allChords();  // copied: what is renamed makes the song forget them
  for (const auto& chord : chords) {
    const double seconds = static_cast<double>(chord->beatTime()) / platform::kSampleRate;
    const bool hasName = chord->harmony() == known && chord->baseTone() == before.root;
    if (!chord->hasBeatTime() || seconds < from || seconds >= to || !hasName || chord->isEdited())
      continue;
    chord->setHarmony(named);
    chord->forgetCaches();
  }
}

}  // namespace korvel
