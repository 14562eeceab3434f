// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <span>

#include "platform/persistence/Ref.h"
#include "platform/text/UserText.h"
#include "workflow/editing/drawn/DrawnChords.h"

namespace korvel {

class QBSong;
class QBTabMgr;

/// Notes of a song as its user draws them in the roll. Each is one undoable action: when it
/// returns, the tablature is drawn anew and everything is saved; when it throws, as with
/// EditRefused for what cannot be or StoreError, nothing has changed.
///
/// Times and lengths are in the steps of `ToneRoll`: ticks in a song on beats, chords in others.
/// They come onto the grid, which is sixteenths in a song on beats, unless they are free; these are
/// rounded to whole steps.
class DrawnNotes {
 public:
  enum class Grid { sixteenths, free };

  /// The song is kept in that store.
  DrawnNotes(QBTabMgr& db, QBSong& song);
  ~DrawnNotes();

  /// "Add Tone", on the string on which a hand would play it there.
  void add(int pitch, double begin, double steps, Grid grid = Grid::sixteenths);
  /// "Move Tone", of several "Move Tones", by so many steps and half tones; on its string, where
  /// that is free and has the fret.
  void move(std::span<const ToneIndex> tones, double steps, int halfTones,
            Grid grid = Grid::sixteenths);
  /// "Change Duration". Each lasts so much longer, or shorter when negative, until its string
  /// sounds again at most.
  void lengthen(std::span<const ToneIndex> tones, double steps, Grid grid = Grid::sixteenths);
  /// "Remove Tone", of several "Remove Tones".
  void remove(std::span<const ToneIndex> tones);

 private:
  void edit(const platform::Phrase& title, const std::function<void(DrawnChords&)>& work);

  QBTabMgr& m_db;
  platform::Ref<QBSong> m_song;
};

}  // namespace korvel
