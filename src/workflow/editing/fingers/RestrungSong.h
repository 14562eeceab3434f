// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>

#include "fingering/FingeringOptions.h"
#include "music/Neck.h"
#include "workflow/editing/fingers/PlayedNotes.h"

namespace korvel {

class QBSong;
class QBTuning;

/// What a song is to be played on; what is not said stays.
struct Strings {
  QBTuning* tuning = nullptr;
  std::optional<int> capo{};  ///< Its fret, at most FingeringOptions::kHighestCapo; 0 for none.
};

/// A song that comes onto other strings: once, inside an action, in one of two ways. Bars, ringing
/// tones and the tablature are for the caller to bring up to date.
///
/// Throws EditRefused before anything has changed when the wanted capo leaves no place for a note.
class RestrungSong {
 public:
  RestrungSong(QBSong& song, const Strings& wanted);

  /// All is fingered anew, but for chords that are edited where their strings still have it. Notes
  /// that the tuning has not go, and it answers how many. With a capo that is wanted none goes for
  /// that: one that lies below it is refused.
  int keepSound();
  /// The same shapes, moved with the capo; names and key follow what sounds then. Refused where
  /// the neck has no such frets.
  void keepFrets();

 private:
  fingering::FingeringOptions guitar() const;
  void requireRoomForSound() const;
  void requireRoomForFrets() const;
  void moveFrets();
  void nameAnew();
  void string();

  QBSong& m_song;
  Strings m_wanted;
  PlayedNotes m_notes;
  OpenPitches m_open{};  ///< The strings that it gets, without the capo.
  int m_capo = 0;        ///< The capo that it gets.
  int m_by = 0;          ///< By how many frets that lies above the one before.
};

}  // namespace korvel
