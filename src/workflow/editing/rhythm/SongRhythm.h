// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

#include "platform/persistence/Ref.h"
#include "platform/text/UserText.h"
#include "workflow/editing/rhythm/RecordedRhythm.h"
#include "workflow/editing/rhythm/WishedRhythm.h"

namespace korvel {

class ChordSupply;
class QBSong;

/// The rhythm of a song that was heard, as its user wants it. Each change is one undoable action,
/// which reads the notes of the recording anew and gives the song other chords and bars in place;
/// the line that it logs says what the song is then. When it throws, as with EditRefused for what
/// cannot be or StoreError when it cannot be saved, nothing has changed.
///
///     SongRhythm(song).change(phrase("UndoAction", "Double Tempo"),
///                             [](WishedRhythm& wished) { wished.multiplyTempo(2); });
///
/// A part of a recording stays that part, and a song that was laid into another metre stays in it
/// unless that is what is to be changed. A song that was arranged from what was heard is refused,
/// as its arrangement would be lost.
class SongRhythm {
 public:
  /// Throws EditRefused as RecordedRhythm does, and for a song that is still being heard.
  explicit SongRhythm(QBSong& song);
  ~SongRhythm();

  const RecordedRhythm& recorded() const { return m_recorded; }
  /// Beats a minute of the song, or of the recording's reading for a song of slices.
  double tempo() const;

  /// A song of slices becomes one on beats by it.
  void change(const platform::Phrase& title, const std::function<void(WishedRhythm&)>& wish);
  /// By the wishes that there are: "Lay Into Bars".
  void layIntoBars();
  /// Equal slices of the recording's time: "Lay Into Slices".
  void layIntoSlices();

 private:
  void readBy(const platform::Phrase& title, const rhythm::Wishes& wishes);
  void relay(const platform::Phrase& title, ChordSupply& supply, const HeardSound* heard,
             const platform::UserText& line);
  [[noreturn]] void refuseArranged() const;

  platform::Ref<QBSong> m_song;
  RecordedRhythm m_recorded;
};

}  // namespace korvel
