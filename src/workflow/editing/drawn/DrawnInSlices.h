// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>

#include "workflow/editing/drawn/DrawnChords.h"

namespace korvel {

/// Of a song of slices: a step is a chord, and what lasts longer says so by its duration.
class DrawnInSlices final : public DrawnChords {
 public:
  DrawnInSlices(QBTabMgr& db, QBSong& song);

  int gridUnit() const override { return 1; }
  int nearestBegin(double step, int unit) const override;
  void join() override {}
  void lengthen(const ToneIndex& place, int steps, int unit) override;
  void finish() override;

 protected:
  int beginOf(const QBChord& chord) const override { return m_indexes.at(&chord); }
  int stepsOf(const ToneIndex& place) const override;
  QBChord* chordAt(int begin) override;
  void came(QBChord& chord, int string, int steps) override;
  void changed(QBChord& chord) override;

 private:
  std::map<const QBChord*, int> m_indexes;
  int m_firstChanged;
};

}  // namespace korvel
