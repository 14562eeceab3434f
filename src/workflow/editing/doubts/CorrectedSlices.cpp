// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/editing/doubts/CorrectedSlices.h"

#include <algorithm>
#include <array>

#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/store/QBTabMgr.h"
#include "music/ChordStep.h"
#include "music/Neck.h"
#include "workflow/editing/ChangedTones.h"
#include "workflow/editing/MeasureLayout.h"
#include "workflow/editing/doubts/StringChoice.h"
#include "workflow/editing/rhythm/EditedChords.h"

namespace korvel {
namespace {

/// A note is in a slice of which it covers so much.
constexpr double kLeastShareOfSlice = 0.3;

}  // namespace

CorrectedSlices::CorrectedSlices(QBTabMgr& db, QBSong& song)
    : m_db(db), m_song(song), m_chords(song.allChords()) {}

/// The first one in any case.
CorrectedSlices::Slices CorrectedSlices::slicesOf(const SongNote& note, double leastShare) const {
  const auto first = static_cast<std::size_t>(note.chord);
  std::size_t end = first + 1;
  for (; end < m_chords.size(); ++end) {
    const auto begin = recordedSecondsOf(*m_chords[end]);
    if (!begin || note.note.end - *begin < leastShare * kSecondsOfChord) break;
  }
  return {first, end};
}

void CorrectedSlices::remove(const SongNote& note) {
  if (note.chord < 0) return;
  const auto [first, end] = slicesOf(note, 0);
  for (std::size_t slice = first; slice < end; ++slice) {
    QBHold* hold = m_chords[slice]->hold();
    QBTone* tone = hold ? hold->findToneByString(note.note.string) : nullptr;
    if (!tone || tone->fret() != note.note.fret) break;
    hold->deleteTone(tone);
    tonesChanged(slice);
  }
}

std::optional<NeckPlace> CorrectedSlices::add(const SongNote& note, const StringChoice& strings) {
  if (note.chord < 0) return {};
  const auto [first, end] = slicesOf(note, kLeastShareOfSlice);
  std::array<bool, kStrings> isFree;
  for (int string = 0; string < kStrings; ++string) {
    const QBHold* hold = m_chords[first]->hold();
    isFree[static_cast<std::size_t>(string)] = !hold || !hold->findToneByString(string);
  }
  const auto string = strings.best(isFree);
  if (!string) return {};
  const int fret = strings.frets[static_cast<std::size_t>(*string)];
  for (std::size_t slice = first; slice < end; ++slice) {
    QBChord& chord = *m_chords[slice];
    if (!chord.hold()) chord.setHold(m_db.createHold());
    if (chord.hold()->findToneByString(*string)) break;
    chord.hold()->addTone(*string, fret, static_cast<double>(note.note.amplitude))->setActive(true);
    tonesChanged(slice);
  }
  return NeckPlace{*string, fret};
}

void CorrectedSlices::tonesChanged(std::size_t slice) {
  readAnew(*m_chords[slice]);
  m_firstChanged = std::min(m_firstChanged, slice);
}

void CorrectedSlices::finish() {
  if (m_firstChanged < m_chords.size())
    layIntoMeasures(m_db, m_song, static_cast<int>(m_firstChanged));
  m_song.forgetCaches();
}

}  // namespace korvel
