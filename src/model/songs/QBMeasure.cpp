// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/songs/QBMeasure.h"

#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "platform/persistence/EntityDescription.h"

namespace korvel {

platform::EntityDescription QBMeasure::describe() {
  return platform::EntityBuilder<QBMeasure>("QBMeasure")
      .attribute<&QBMeasure::m_position>("position")
      .attribute<&QBMeasure::m_beat>("beat")
      .attribute<&QBMeasure::m_beattype>("beattype")
      .toOne<&QBMeasure::m_song>("song", "QBSong", "measures")
      .toMany<&QBMeasure::m_chords>("chords", "QBChord", "measure")
      .build();
}

QBSong* QBMeasure::song() const { return target(m_song); }

void QBMeasure::setSong(QBSong* value) { relate(m_song, value); }

platform::Members<QBChord> QBMeasure::chords() const { return members(m_chords); }

}  // namespace korvel
