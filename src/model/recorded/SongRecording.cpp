// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/recorded/SongRecording.h"

#include "model/songs/QBSong.h"
#include "platform/persistence/EntityDescription.h"

namespace korvel {

platform::EntityDescription SongRecording::describe() {
  return platform::EntityBuilder<SongRecording>("SongRecording")
      .attribute<&SongRecording::m_path>("path")
      .attribute<&SongRecording::m_size>("size")
      .attribute<&SongRecording::m_hash>("hash")
      .attribute<&SongRecording::m_title>("title")
      .attribute<&SongRecording::m_artist>("artist")
      .attribute<&SongRecording::m_seconds>("seconds")
      .attribute<&SongRecording::m_tuningOffset>("tuningOffset")
      .attribute<&SongRecording::m_capo>("capo")
      .attribute<&SongRecording::m_band>("band")
      .attribute<&SongRecording::m_notes>("notes", platform::Fetch::onDemand)
      .attribute<&SongRecording::m_rhythm>("rhythm", platform::Fetch::onDemand)
      .toMany<&SongRecording::m_songs>("songs", "QBSong", "recording")
      .build();
}

platform::Members<QBSong> SongRecording::songs() const { return members(m_songs); }

}  // namespace korvel
