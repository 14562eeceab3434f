// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "fingering/Note.h"
#include "platform/text/UserText.h"
#include "rhythm/stored/NoteCorrections.h"

namespace korvel {

class QBChord;
class QBSong;

/// A note that was heard in a song's recording, whether it was taken for one or not, and what the
/// song has of it.
struct SongNote {
  /// As it was heard; of one that is in the song string and fret are those of its tone there.
  fingering::Note note;
  /// The song has it. One that it has not is a candidate.
  bool isIn = false;
  /// The detection took it.
  bool wasTaken = false;
  /// The user has decided about it, or has changed what was there by hand: it is not doubted, and
  /// stays when notes are decided anew.
  bool isLocked = false;
  /// Index in the song's `allChords` of the chord in which it is struck, or for a candidate of the
  /// one during which it would be; -1 for one that lies outside of the song.
  int chord = -1;
  /// It is to be in the song, but another one is on its string there, or no hand could play it.
  bool isLeftOut = false;
};

/// All notes that were heard in the recording of a song, as the song has them now. Computed once:
/// to be made anew after each change of the song. A song of four minutes takes a few milliseconds.
///
/// Notes are named by their index here, which stays the same as long as no part of the recording is
/// heard again.
class SongNotes {
 public:
  /// A song without a recording, one of a band, one that was arranged from what was heard, or one
  /// of which what was heard cannot be read any more has no notes.
  explicit SongNotes(QBSong& song) : SongNotes(song, Arranged::hasNone) {}
  /// What a song that was arranged from what was heard has of it.
  enum class Arranged { hasNone, hasSome };
  SongNotes(QBSong& song, Arranged arranged);

  /// Why a song has none, in a line for the user; none for one that has.
  static std::optional<platform::UserText> refusal(QBSong& song);

  /// By onset, equal onsets by pitch.
  std::span<const SongNote> all() const { return m_notes; }
  const SongNote& operator[](std::size_t note) const { return m_notes.at(note); }
  std::size_t size() const { return m_notes.size(); }
  bool empty() const { return m_notes.empty(); }
  /// The note that a tone of a chord is, by the index of the chord; none for a tone that was not
  /// heard there.
  std::optional<std::size_t> noteOf(int chord, int string) const;

  /// Notes that are less probable are doubtful.
  static constexpr float kDoubtful = 0.75F;
  /// What is struck so near to a chord comes with it, in seconds.
  static constexpr double kWithChord = 0.06;

 private:
  void find(QBSong& song, Arranged arranged);

  std::vector<SongNote> m_notes;
  /// Of the notes that are in the song, by the index of their chord and by string.
  std::map<std::pair<int, int>, std::size_t> m_tones;
};

}  // namespace korvel
