// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <limits>

#include "platform/persistence/Ref.h"
#include "workflow/editing/doubts/CorrectedChords.h"

namespace korvel {

class QBChord;

/// Of a song of slices: a note comes into all slices of which it sounds for a good part.
class CorrectedSlices final : public CorrectedChords {
 public:
  CorrectedSlices(QBTabMgr& db, QBSong& song);

  void remove(const SongNote& note) override;
  std::optional<NeckPlace> add(const SongNote& note, const StringChoice& strings) override;
  void finish() override;

 private:
  /// Indexes of the first slice of a note and behind the last one.
  struct Slices {
    std::size_t first;
    std::size_t end;
  };

  Slices slicesOf(const SongNote& note, double leastShare) const;
  void tonesChanged(std::size_t slice);

  QBTabMgr& m_db;
  QBSong& m_song;
  const std::vector<platform::Ref<QBChord>> m_chords;
  std::size_t m_firstChanged = std::numeric_limits<std::size_t>::max();
};

}  // namespace korvel
