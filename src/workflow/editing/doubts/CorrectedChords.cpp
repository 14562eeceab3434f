// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/editing/doubts/CorrectedChords.h"

#include "model/songs/QBSong.h"
#include "workflow/editing/BeatBars.h"
#include "workflow/editing/doubts/CorrectedBars.h"
#include "workflow/editing/doubts/CorrectedSlices.h"

namespace korvel {

std::unique_ptr<CorrectedChords> CorrectedChords::of(QBTabMgr& db, QBSong& song) {
  song.forgetCaches();
  if (BeatBars::areIn(song)) return std::make_unique<CorrectedBars>(db, song);
  return std::make_unique<CorrectedSlices>(db, song);
}

}  // namespace korvel
