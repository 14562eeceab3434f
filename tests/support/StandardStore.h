// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

// What tests with a store mostly handle.
#include "model/QBAlbum.h"
#include "model/QBChord.h"
#include "model/QBHold.h"
#include "model/QBInstrument.h"
#include "model/QBSong.h"
#include "model/QBTabMgr.h"
#include "model/QBTone.h"
#include "model/QBTuning.h"
#include "support/ScratchStore.h"

namespace korvel::test {

/// A scratch store with settings and the tunings "Standard", which is selected, and "Drop D".
class StandardStore {
 public:
  StandardStore();

  QBTuning* standard() const;
  QBTuning* dropD() const;
  /// A song in standard tuning, in no album.
  QBSong* song(const std::string& title) const;
  const ScratchFolder& folder() const { return m_store.folder(); }

 private:
  ScratchStore m_store;
};

/// Appends a chord to a song, written as in a chord book: a character for each string, the lowest
/// first, "x" for a silent one, letters from "a" for frets from 10: "x02210".
QBChord* addChord(QBSong* song, std::string_view frets, int duration = 1);

/// A chord as `addChord` takes it; "-" stands for a tone that is silenced, "[02]" for several on a
/// string.
std::string fretsOf(const QBChord& chord);
/// Those of all chords, each followed by a blank.
std::string fretsOf(const QBSong& song);

}  // namespace korvel::test
