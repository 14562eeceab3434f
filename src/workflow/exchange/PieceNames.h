// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "arrange/harmony/ChordName.h"
#include "fingering/Note.h"
#include "workflow/exchange/TrackNotes.h"

namespace korvel {

class PieceBars;
class QBTabMgr;

/// The name of all chords from a tick on; none where there is no chord.
struct NamedFrom {
  int tick = 0;
  std::optional<ChordName> name;
};

/// What the chords of a piece are called, and its key: as the file says, and where it says nothing,
/// as what sounds tells.
class PieceNames {
 public:
  /// A track without names has those of the track that has most.
  PieceNames(const QBTabMgr& db, const exchange::Piece& piece, const exchange::Track& track,
             const TrackNotes& notes, const PieceBars& bars);

  /// By tick, no two at one.
  const std::vector<NamedFrom>& all() const { return m_names; }
  /// Whether they are the file's.
  bool areWritten() const { return m_areWritten; }
  /// As of `QBSong`.
  std::optional<int> key() const { return m_key; }
  const LeftOut& left() const { return m_left; }

 private:
  void read(const QBTabMgr& db, const exchange::Track& track, const PieceBars& bars);
  void moveWithStrings(const exchange::Track& track, const PieceBars& bars);
  double shareOfTones(const exchange::Track& track, const PieceBars& bars, int step) const;
  std::optional<ChordName> nameOf(const QBTabMgr& db, const std::string& text);
  void find(const QBTabMgr& db, const TrackNotes& notes, const PieceBars& bars);

  std::vector<NamedFrom> m_names;
  bool m_areWritten = false;
  std::optional<int> m_key;
  LeftOut m_left;
};

}  // namespace korvel
