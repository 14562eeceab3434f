// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

// What tests with a store mostly handle.
#include "model/book/QBHarmony.h"
#include "model/instruments/QBInstrument.h"
#include "model/instruments/QBTuning.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBMeasure.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/store/QBTabMgr.h"
#include "support/store/ScratchStore.h"

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

/// A further tuning, with strings that sound these MIDI numbers.
QBTuning* addTuning(const std::string& name, const OpenPitches& pitches);

/// Appends a chord to a song, written as in a chord book: a character for each string, the lowest
/// first, "x" for a silent one, letters from "a" for frets from 10: "x02210".
QBChord* addChord(QBSong* song, std::string_view frets, int duration = 1);

/// A chord as `addChord` takes it; "-" stands for a tone that is silenced, "[02]" for several on a
/// string.
std::string fretsOf(const QBChord& chord);
/// Those of all chords, each followed by a blank.
std::string fretsOf(const QBSong& song);

}  // namespace korvel::test
