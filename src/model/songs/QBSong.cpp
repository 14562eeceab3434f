// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/songs/QBSong.h"

#include <stdexcept>

#include "model/instruments/QBInstrument.h"
#include "model/instruments/QBTuning.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBMeasure.h"
#include "model/store/QBTabMgr.h"
#include "platform/persistence/EntityDescription.h"

namespace korvel {

platform::EntityDescription QBSong::describe() {
  return platform::EntityBuilder<QBSong>("QBSong")
      .attribute<&QBSong::m_title>("title")
      .attribute<&QBSong::m_instrument>("instrument")
      .attribute<&QBSong::m_avgrate>("avgrate")
      .attribute<&QBSong::m_tempoRate>("tempoRate")
      .attribute<&QBSong::m_tabulature>("tabulature", platform::Fetch::onDemand)
      .attribute<&QBSong::m_descr>("descr")
      .toOne<&QBSong::m_album>("album", "QBAlbum", "songs")
      .toOne<&QBSong::m_tuning>("tuning", "QBTuning", "songs")
      .toOne<&QBSong::m_fromChord>("fromChord", "QBChord")
      .toOne<&QBSong::m_toChord>("toChord", "QBChord")
      .toMany<&QBSong::m_chords>("chords", "QBChord", "song")
      .toMany<&QBSong::m_measures>("measures", "QBMeasure", "song")
      .build();
}

QBSong::QBSong() = default;

QBSong::~QBSong() = default;

QBAlbum* QBSong::album() const { return target(m_album); }

void QBSong::setAlbum(QBAlbum* value) { relate(m_album, value); }

QBTuning* QBSong::tuning() const { return target(m_tuning); }

void QBSong::setTuning(QBTuning* value) { relate(m_tuning, value); }

QBChord* QBSong::fromChord() const { return target(m_fromChord); }

void QBSong::setFromChord(QBChord* value) { relate(m_fromChord, value); }

QBChord* QBSong::toChord() const { return target(m_toChord); }

void QBSong::setToChord(QBChord* value) { relate(m_toChord, value); }

platform::Members<QBChord> QBSong::chords() const { return members(m_chords); }

platform::Members<QBMeasure> QBSong::measures() const { return members(m_measures); }

void QBSong::forgetCaches() {
  if (!m_sortedChords) return;
  for (const auto& chord : *m_sortedChords) chord->m_xPosInMatrix = chord->m_yPosInMatrix = 0;
  m_sortedChords.reset();
}

QBSong* QBSong::cloneToAlbum(QBAlbum* target) {
  QBTabMgr& db = QBTabMgr::db();
  QBSong* copy = db.createSong(title(), tuning(), db.selectedInstrument(), target);
  for (const auto& chord : allChords()) chord->clone(copy);
  return copy;
}

QBSong* QBSong::clone() { return cloneToAlbum(album()); }

QBAlbum& QBSong::requireAlbum() const {
  if (!album()) throw std::logic_error("the song \"" + title() + "\" is in no album");
  return *album();
}

}  // namespace korvel
