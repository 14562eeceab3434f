// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "fingering/FingeringOptions.h"
#include "fingering/Note.h"
#include "platform/persistence/Ref.h"
#include "platform/text/UserText.h"

namespace korvel {

class PlayedNotes;
class QBSong;
class QBTabMgr;
struct Strings;

/// Edits of where the tones of a song are played; what sounds stays the same, but where a song is
/// given another tuning or capo and keeps its frets.
///
/// Each is one undoable action, saved and with its tablature drawn when it returns. What it is told
/// of becomes `edited`, and the rest of the phrase is fingered anew around it, but for chords that
/// are edited already. A phrase ends where nothing sounds for a second, and after six. Hands go by
/// the positions that the song's chords are marked with (`QBChord::handFret`).
///
/// Chords are counted from 0 in order of position, strings from the lowest. Throws EditRefused when
/// there is no such place on the neck, std::out_of_range for what there is none of, StoreError when
/// saving fails; nothing has changed then.
class SongFingers {
 public:
  static constexpr int kHighestHand = 16;
  /// Of the hand anywhere.
  static constexpr int kAnywhere = 0;

  SongFingers(QBTabMgr& db, QBSong& song);
  ~SongFingers();

  /// From a chord on, up to the next one that is marked, the hand is near that fret: "Set Hand
  /// Position". Without one the mark goes, and what the mark before says holds.
  void setHand(int chord, std::optional<int> fret);

  /// The next of the ways to hold the chord's notes, the easiest first, or the one before it, as
  /// often as told; after the last comes the first: "Change Shape".
  void changeShape(int chord, int by);

  /// To the next string above, or below it for -1, where it sounds the same; other tones of the
  /// chord make room: "Move Tone".
  void moveTone(int chord, int string, int by);

  /// All from first to last are played on higher strings, lower on the neck, or for -1 on lower
  /// ones: "Move Phrase".
  void movePhrase(int first, int last, int by);

  /// What is not edited from first to last is fingered anew: "Finger Anew".
  void fingerAnew(int first, int last);

  /// What stays of a song on other strings.
  enum class Kept { sound, frets };

  /// Another tuning for the song, another fret for its capo, or both: "Retune Song", or "Move Capo"
  /// for that alone. `RestrungSong` tells what comes of it, what is refused and what it answers.
  int retune(const Strings& strings, Kept kept);

 private:
  using Placed = std::vector<fingering::Note>;
  /// From first to last.
  struct Range {
    std::size_t first = 0;
    std::size_t last = 0;
  };

  void edit(const platform::Phrase& title, const std::function<void()>& work);
  void requireChord(int chord) const;
  bool isEdited(std::size_t chord) const;
  fingering::Settled settledBut(const PlayedNotes& notes, Range range) const;
  Range phraseAround(const PlayedNotes& notes, Range range) const;
  void finger(Range range);
  void settle(const PlayedNotes& notes, std::size_t chord, std::span<const fingering::Note> placed);
  void settleAndFinger(const platform::Phrase& title, const PlayedNotes& notes, Range range,
                       std::span<const fingering::Note> placed);
  void tonesMoved(Range range);

  QBTabMgr& m_db;
  platform::Ref<QBSong> m_song;
};

}  // namespace korvel
