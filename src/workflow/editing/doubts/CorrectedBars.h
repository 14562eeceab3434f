// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/songs/SongTime.h"
#include "workflow/editing/BeatBars.h"
#include "workflow/editing/doubts/CorrectedChords.h"

namespace korvel {

/// Of a song on beats: a note comes into the chord with which it is struck, or into a new one at
/// the nearest place of the bar. A chord that loses its last tone goes, and the one before it lasts
/// longer. Bars keep their length, chords the names of their passages.
class CorrectedBars final : public CorrectedChords {
 public:
  CorrectedBars(QBTabMgr& db, QBSong& song);

  void remove(const SongNote& note) override;
  std::optional<NeckPlace> add(const SongNote& note, const StringChoice& strings) override;
  void finish() override;

 private:
  std::optional<std::size_t> chordFor(const SongNote& note);
  int tickOf(const fingering::Note& note) const;
  void goOnRinging(std::size_t chord, int string, int fret, int ticks);

  QBTabMgr& m_db;
  QBSong& m_song;
  const SongTime m_time;  ///< Of the song as it was.
  const std::vector<platform::Ref<QBChord>> m_before;
  std::vector<platform::Ref<QBChord>> m_emptied;  ///< They stay until it is known what comes.
  BeatBars m_bars;
  bool m_isCompound;
};

}  // namespace korvel
