// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "analysis/beats/WrittenChords.h"
#include "analysis/chords/ChordSupply.h"
#include "platform/persistence/Ref.h"
#include "workflow/exchange/PieceBars.h"
#include "workflow/exchange/PieceNames.h"
#include "workflow/exchange/PieceTime.h"
#include "workflow/exchange/PlacedNotes.h"
#include "workflow/exchange/TrackNotes.h"

namespace korvel {

class QBMeasure;
class QBTabMgr;

/// The chords of a song on beats as a piece has them written: what is struck together, as long as
/// all of it lasts, and between that what fills the bars. With the first one the song gets tempo,
/// swing and key. Where the tempo changes, each chord knows its time, as one that was heard does.
class PieceChords final : public ChordSupply {
 public:
  /// notes: of that track, on their strings.
  PieceChords(const QBTabMgr& db, const exchange::Piece& piece, const exchange::Track& track,
              const TrackNotes& notes);
  ~PieceChords() override;

  std::size_t size() const override { return m_chords.size(); }
  QBChord* make(QBSong* song) override;
  /// What of the notes and names is not as the piece has it.
  LeftOut left() const;

 private:
  void write();
  void strike(std::span<const PlacedNote> together, int next);
  void fillTo(int tick);
  WrittenChord& addChord(int end);
  void tellTempo();
  void begin(QBSong& song) const;
  void layIntoMeasure(QBSong& song, const WrittenChord& written, QBChord& chord);

  PieceBars m_bars;
  PieceTime m_time;
  PlacedNotes m_notes;
  PieceNames m_names;
  std::optional<double> m_swing;
  double m_tempo = 0;
  bool m_isSteady = true;
  int m_at;                            ///< The end of what is written.
  std::size_t m_named = 0;             ///< How many of the names begin at or before that.
  std::vector<WrittenChord> m_chords;  ///< Their spans are those names, counted from 0.

  std::size_t m_next = 0;
  platform::Ref<QBMeasure> m_measure;
};

}  // namespace korvel
