// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "platform/text/UserText.h"
#include "workflow/editing/doubts/SongNotes.h"

namespace korvel {

class QBSong;

/// One thing that may be wrong.
struct Doubt {
  enum class Kind {
    note,      ///< It may be no note.
    overtone,  ///< It may be an overtone of another one.
    octave,    ///< It may be another one, which is a candidate, an octave or more above or below.
    restrike,  ///< The note of its pitch before it may only ring on.
    missing,   ///< A candidate may be a note.
    chord,     ///< Of what is struck together not all may be there, or something else.
  };

  /// In the song's notes: the one that may be none, or the candidate; of a chord the least
  /// probable.
  std::size_t note = 0;
  Kind kind = Kind::note;
  /// In the song's notes: the candidate that may be meant, or the note of which it is an overtone.
  std::optional<std::size_t> other{};
  /// "A string, fret 3: perhaps an overtone of C3".
  platform::UserText reason{};
};

/// A moment of a song to be listened to, with all that may be wrong there.
struct DoubtfulPlace {
  int chord = -1;      ///< Index in `allChords`.
  double seconds = 0;  ///< In the recording, of the first note.
  double length = 0;   ///< Likewise; how long to listen.
  double benefit = 0;  ///< How many notes are expected to be wrong there.
  std::vector<Doubt> doubts;
};

/// Where a song may be wrong, in order of time: those places at which a look is worth it. On
/// recordings that were heard well these are few; at most they are one for four notes. What the
/// user has confirmed, corrected or edited is not among them.
///
/// Computed once, from the song's notes.
class DoubtList {
 public:
  DoubtList() = default;
  DoubtList(QBSong& song, const SongNotes& notes);

  std::span<const DoubtfulPlace> places() const { return m_places; }
  std::size_t size() const { return m_places.size(); }
  bool empty() const { return m_places.empty(); }
  /// The next place behind a chord, or before it; none behind the last one.
  const DoubtfulPlace* next(int chord) const;
  const DoubtfulPlace* previous(int chord) const;
  const DoubtfulPlace* at(int chord) const;

 private:
  std::vector<DoubtfulPlace> m_places;
};

}  // namespace korvel
