// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "platform/persistence/Ref.h"
#include "platform/text/UserText.h"
#include "workflow/editing/doubts/SongNotes.h"

namespace korvel {

class QBSong;

/// How many notes come into a song and how many go.
struct NoteChanges {
  std::size_t come = 0;
  std::size_t go = 0;
};

/// What the user says about the notes that were heard in a song's recording. Each is one undoable
/// action: the tones and chords change, the tablature is drawn anew, all is saved, and the notes
/// are locked. When it throws, as with EditRefused for what cannot be or StoreError when it cannot
/// be saved, nothing has changed.
///
/// Notes are named by their index in the `SongNotes` of the song as it is. Strings of notes that
/// come in are chosen as a hand would that plays what is there. In a song on beats they come into
/// the chord that is struck at their time, or into a new one; bars keep their length.
class SongCorrections {
 public:
  /// Throws EditRefused for a song that has no such notes, or is still being heard.
  explicit SongCorrections(QBSong& song);
  ~SongCorrections();

  /// A candidate is a note: "Take Note". Throws EditRefused where no string is free for it. Nothing
  /// for one that is in the song and locked.
  void accept(std::size_t note);
  /// What is there is no note: "Drop Note"; of a candidate that it stays none.
  void drop(std::size_t note);
  /// It is as the song has it: "Confirm Note", of several "Confirm Notes".
  void confirm(std::span<const std::size_t> notes);
  void confirm(std::size_t note) { confirm(std::span(&note, 1)); }
  /// One note is meant to be the other: "Take Other Note".
  void replace(std::size_t note, std::size_t by);
  /// All of it in one action, for scripts: "Correct Notes".
  void correct(std::span<const std::size_t> accepted, std::span<const std::size_t> dropped,
               std::span<const std::size_t> confirmed);

  /// What the user has decided of one song's notes holds for another one that was heard in the same
  /// recording, as far as the same notes were heard. Whether anything was. A part of the caller's
  /// action; draws and saves nothing.
  static bool carry(QBSong& from, QBSong& to);

  /// A part of the song, by indexes in `allChords`; the whole song if there is none.
  struct Part {
    int first = 0;
    int last = 0;
  };

  /// What `decideAnew` would change; takes some milliseconds for a song of four minutes.
  NoteChanges preview(double sensitivity, const std::optional<Part>& part = {}) const;
  /// Sensitivities that are told apart, but for 0.
  static constexpr int kSensitivities = 40;
  /// The one that the notes stand for which the song has now: it would change the fewest; of
  /// several that nearest to an import's own, 0.5.
  double presentSensitivity(const std::optional<Part>& part = {}) const;
  /// Decides which of all that was heard are notes, as an import of that sensitivity does: 0..1,
  /// more notes with a higher one. What is locked stays: "More or Fewer Notes".
  NoteChanges decideAnew(double sensitivity, const std::optional<Part>& part = {});

 private:
  class Work;

  NoteChanges done(const platform::Phrase& title, Work& work);
  template <class Change>
  static void eachChange(const SongNotes& notes, double sensitivity,
                         const std::optional<Part>& part, const Change& change);

  platform::Ref<QBSong> m_song;
};

}  // namespace korvel
