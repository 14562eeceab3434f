// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "tab/layout/BarSigns.h"

namespace korvel {

class QBSong;

/// A song on beats as bars of events, one event for each chord. A copy: later changes of the song
/// do not reach it. Ticks count from the song's beginning, chords are indexes in its `allChords`.
class SongBars {
 public:
  struct Fret {
    int string;
    int fret;
  };
  struct Event {
    int chord;
    int from;
    int ticks;
    BarEvent::Kind kind;
    /// As its key writes it, behind a capo "G (A)"; "" where the chord is the one before.
    std::string name;
    std::vector<Fret> frets;  ///< What is struck, by string, then by fret.
  };
  struct Bar {
    int number;  ///< 0 a pick-up: a first bar that is not full and not the only one.
    int beat;
    int beattype;
    bool showsTime;  ///< Its time signature is not that of the bar before.
    int first;       ///< Tick of the bar that its events begin at.
    std::vector<Event> events;
    std::vector<BarEvent> lower = {};  ///< A second voice of what is held below others, if any.

    std::vector<BarSign> signs() const;
    /// Those of the second voice, without its rests.
    std::vector<BarSign> lowerSigns() const;
  };
  /// A tone that sounds until its end, or until its string is struck again.
  struct Ring {
    int chord;
    int string;
    int from;
    int end;
    bool isUnderOthers;  ///< Other strings are struck meanwhile.
  };

  SongBars() = default;
  /// Chords without ticks, as an edit may leave them, last as long as their duration.
  explicit SongBars(QBSong& song);

  const std::vector<Bar>& bars() const { return m_bars; }
  const std::vector<Ring>& rings() const { return m_rings; }

 private:
  void readBars(QBSong& song);
  void readTones(QBSong& song);
  void readLower();
  void countBars();

  std::vector<Bar> m_bars;
  std::vector<Ring> m_rings;
};

}  // namespace korvel
