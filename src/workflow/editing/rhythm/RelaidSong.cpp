// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/editing/rhythm/RelaidSong.h"

#include <algorithm>
#include <cmath>

#include "analysis/chords/ChordSupply.h"
#include "arrange/chords/QBToneGroupBuilder.h"
#include "arrange/harmony/HarmonyOfChord.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBMeasure.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"

namespace korvel {
RelaidSong::RelaidSong(QBSong& song)
    : m_db(QBTabMgr::of(song)), m_song(song), m_edited(song), m_fingers(song), m_words(song) {
  if (song.fromChord()) m_loopBegin = recordedSecondsOf(*song.fromChord());
  if (song.toChord()) m_loopEnd = recordedSecondsOf(*song.toChord());
}

RelaidSong::~RelaidSong() = default;

void RelaidSong::fillFrom(ChordSupply& supply) {
  clear();
  take(supply);
  m_edited.putInto(m_song);
  m_fingers.putInto(m_song);
  m_words.putInto(m_song);
  setLoop();
}

void RelaidSong::clear() {
  m_song.setFromChord(nullptr);
  m_song.setToChord(nullptr);
  const auto chords = m_song.allChords();
  for (std::size_t i = chords.size(); i-- > 0;) m_song.deleteChord(chords[i]);
  for (const auto& measure : m_song.allMeasures()) {
    measure->setSong(nullptr);
    m_db.deleteInstance(measure);
  }
  m_song.clearRhythm();
  m_song.forgetCaches();
}

/// Chords on beats have the names of their passages.
void RelaidSong::take(ChordSupply& supply) {
  const std::size_t count = supply.size();
  for (std::size_t i = 0; i < count; ++i) {
    QBChord& chord = *supply.make(&m_song);
    chord.setPosition(static_cast<int>(i) + 1);
    if (!chord.hasTicks()) readHarmony(chord);
    QBToneGroupBuilder(&chord).build();
  }
  m_song.forgetCaches();
}

QBChord* RelaidSong::nearest(double seconds) const {
  const auto& chords = m_song.allChords();
  const auto distance = [seconds](const auto& chord) {
    return std::abs(recordedSecondsOf(*chord).value_or(0) - seconds);
  };
  const auto found = std::ranges::min_element(chords, {}, distance);
  return found == chords.end() ? nullptr : found->get();
}

void RelaidSong::setLoop() {
  QBChord* begin = m_loopBegin ? nearest(*m_loopBegin) : nullptr;
  QBChord* end = m_loopEnd ? nearest(*m_loopEnd) : nullptr;
  if (begin && end && begin->position() >= end->position()) return;
  m_song.setFromChord(begin);
  m_song.setToChord(end);
}

}  // namespace korvel
