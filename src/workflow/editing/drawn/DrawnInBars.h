// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>

#include "workflow/editing/BeatBars.h"
#include "workflow/editing/drawn/DrawnChords.h"

namespace korvel {

class QBTone;

/// Of a song on beats: a step is a tick. Where no chord begins, one is divided; chords that changed
/// are marked as the user's.
class DrawnInBars final : public DrawnChords {
 public:
  DrawnInBars(QBTabMgr& db, QBSong& song);

  int gridUnit() const override;
  int nearestBegin(double step, int unit) const override;
  void join() override;
  void lengthen(const ToneIndex& place, int steps, int unit) override;
  void finish() override;

 protected:
  int beginOf(const QBChord& chord) const override;
  int stepsOf(const ToneIndex& place) const override;
  QBChord* chordAt(int begin) override;
  void came(QBChord& chord, int string, int steps) override;
  void changed(QBChord& chord) override;

 private:
  struct Ringing {
    platform::Ref<QBTone> tone;
    int ticks;
  };

  std::vector<Ringing> ringingAt(int begin) const;
  int roomOf(std::size_t chord, int string) const;
  void endWithTones(QBChord& chord);

  BeatBars m_bars;
  std::map<const QBChord*, int> m_begins;      ///< Of the chords before the edit, and of new ones.
  int m_pickUp = 0;                            ///< Ticks before the first bar line.
  std::vector<platform::Ref<QBChord>> m_left;  ///< From which tones were taken.
};

}  // namespace korvel
