// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "fingering/FingeringOptions.h"
#include "fingering/Note.h"
#include "music/Neck.h"
#include "platform/loop/Slices.h"
#include "workflow/exchange/PieceTime.h"

namespace korvel {

namespace exchange {
struct Piece;
struct Track;
}  // namespace exchange

/// How often each thing happened that a user is told of: "grace notes": 3.
using LeftOut = std::map<std::string, int>;

/// The notes of one track on the six strings of a guitar.
///
/// What the file says of strings holds as long as it can be played so; the rest goes where a hand
/// would play it. What lies off the neck is moved onto it by octaves.
class TrackNotes {
 public:
  /// Whether the times of notes are to be those at which they were struck, or may be later: what is
  /// written never is together by being fast.
  enum class Times { written, played };

  /// What the notes are played on.
  struct Guitar {
    /// In place of the track's own strings, whose places do not hold then.
    std::optional<OpenPitches> open{};
    OpenPitches usual = kStandardPitches;  ///< For a track that does not name six strings.
    /// In place of the usual ones, for a track that says nothing of strings and has lower notes.
    std::vector<OpenPitches> lower{};
    /// For notes that the file names no place of. The capo is one for a track without its own.
    fingering::FingeringOptions fingering{};
  };

  /// The track must outlive this.
  TrackNotes(const exchange::Piece& piece, const exchange::Track& track, Times times,
             const Guitar& guitar);

  /// Chooses strings. Step it to its end, while this stays where it is, before asking for more.
  platform::Slices placing();

  /// As many as the track has, in its order; those without a string are left out.
  const std::vector<fingering::Note>& notes() const { return m_notes; }
  /// Which their onsets and ends are of.
  const PieceTime& time() const { return m_time; }
  const OpenPitches& open() const { return m_open; }
  /// Whether these are none that the track or the user names, nor the usual ones.
  bool areStringsFound() const { return m_areStringsFound; }
  int capo() const { return m_options.capo; }
  const LeftOut& left() const { return m_left; }

 private:
  void readNotes();
  void findStrings(const std::vector<OpenPitches>& lower);
  bool isStruckOften(int pitch) const;
  void bringOntoNeck(fingering::Note& note);
  std::optional<int> stringOf(std::size_t note) const;
  void takeString(fingering::Note& note, int string) const;

  const exchange::Track& m_track;
  PieceTime m_time;
  OpenPitches m_open;
  bool m_keepsPlaces;
  bool m_areStringsFound = false;
  fingering::FingeringOptions m_options;
  std::vector<fingering::Note> m_notes;
  LeftOut m_left;
};

}  // namespace korvel
