// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <optional>

#include "workflow/editing/doubts/SongNotes.h"

namespace korvel {

class QBSong;
class QBTabMgr;
struct StringChoice;

/// Where a note is played.
struct NeckPlace {
  int string = -1;
  int fret = -1;
};

/// The chords of a song while heard notes go from them and come into them. First those go that are
/// to go, then the others come.
class CorrectedChords {
 public:
  /// Of a song as its notes say: on beats, or of slices.
  static std::unique_ptr<CorrectedChords> of(QBTabMgr& db, QBSong& song);
  virtual ~CorrectedChords() = default;

  virtual void remove(const SongNote& note) = 0;
  /// Answers where it is played; none if no string is free.
  virtual std::optional<NeckPlace> add(const SongNote& note, const StringChoice& strings) = 0;
  /// To be called once, at the end: bars and names are right then.
  virtual void finish() = 0;
};

}  // namespace korvel
