// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "analysis/beats/NameWeights.h"
#include "music/Pitch.h"
#include "tab/layout/LoopRange.h"
#include "workflow/editing/fingers/PlayedNotes.h"

namespace korvel {

class QBSong;
class QBTabMgr;

/// The passages of a song that have one name each, and what else they may be called. Computed once:
/// not to be kept while the song is edited.
class NamedPassages {
 public:
  static constexpr std::size_t kOffers = 5;

  NamedPassages(const QBTabMgr& db, QBSong& song);

  /// The chords around one that have its name, or none as it has.
  ChordSpan around(int chord) const;

  /// All passages in which mostly the same notes sound as in that one, itself among them, in order.
  /// That one alone where nothing sounds.
  std::vector<ChordSpan> alike(ChordSpan passage) const;

  /// What explains best the notes of a passage.
  std::vector<WeighedName> offers(ChordSpan passage, std::size_t most = kOffers) const;

 private:
  using Weights = std::array<double, kNotesPerOctave>;

  bool isOneName(std::size_t chord, std::size_t other) const;
  double endOf(ChordSpan passage) const;
  std::vector<fingering::Note> notesOf(ChordSpan passage) const;
  unsigned mainNotes(ChordSpan passage) const;

  const QBTabMgr& m_db;
  QBSong& m_song;
  PlayedNotes m_notes;
};

}  // namespace korvel
