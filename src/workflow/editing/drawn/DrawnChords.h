// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <vector>

#include "platform/persistence/Ref.h"
#include "workflow/editing/doubts/StringChoice.h"
#include "workflow/editing/drawn/ToneIndex.h"

namespace korvel {

class QBChord;
class QBSong;
class QBTabMgr;

/// A note on its way into the chords of a song. Times are in steps from the first chord on.
struct DrawnNote {
  int pitch = 0;
  int begin = 0;
  int steps = 0;
  int string = -1;  ///< Where it was played; -1 of a new one.
  double amp = 0;   ///< Likewise; 0 for as loud as what is beside it.
  bool active = true;
};

/// The chords of a song while drawn notes go from them and come into them.
class DrawnChords {
 public:
  /// Of a song on beats, or of slices.
  static std::unique_ptr<DrawnChords> of(QBTabMgr& db, QBSong& song);
  virtual ~DrawnChords();

  /// Of the grid, in steps.
  virtual int gridUnit() const = 0;
  /// Where a note begins that is drawn there: on the grid, or with a chord that is nearer.
  virtual int nearestBegin(double step, int unit) const = 0;

  /// Takes a tone out. std::out_of_range where there is none.
  DrawnNote take(const ToneIndex& place);
  /// Chords that have lost all of their tones become a part of what is before them.
  virtual void join() = 0;
  /// Throws EditRefused where the song does not reach to, or where no string is free for it.
  void put(const DrawnNote& note);
  /// At least one unit is left.
  virtual void lengthen(const ToneIndex& place, int steps, int unit) = 0;
  /// To be called once, at the end.
  virtual void finish() = 0;

 protected:
  DrawnChords(QBTabMgr& db, QBSong& song);

  QBTabMgr& db() const { return m_db; }
  QBSong& song() const { return m_song; }
  /// As it was before.
  QBChord& chordOf(const ToneIndex& place) const;

  /// Where the tones of a chord begin, before the edit, and how long one lasts.
  virtual int beginOf(const QBChord& chord) const = 0;
  virtual int stepsOf(const ToneIndex& place) const = 0;
  /// The chord in which a note is to begin, which may be made; null outside of the song.
  virtual QBChord* chordAt(int begin) = 0;
  /// A tone has come, which is to last so long.
  virtual void came(QBChord& chord, int string, int steps) = 0;
  virtual void changed(QBChord& chord) = 0;

 private:
  StringChoice choiceFor(const DrawnNote& note) const;
  double loudnessNear(const QBChord& chord) const;

  QBTabMgr& m_db;
  QBSong& m_song;
  std::vector<platform::Ref<QBChord>> m_before;
};

}  // namespace korvel
