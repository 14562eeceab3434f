// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/hearing/ClassicHearing.h"

#include "analysis/chords/QBChordAnalyserGame.h"
#include "audio/QBMediaTrack.h"
#include "model/instruments/QBInstrument.h"
#include "model/instruments/QBTuning.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "recording/QBChordRecorder.h"

namespace korvel {

ClassicHearing::ClassicHearing(const std::filesystem::path& file, const HearingTask& task)
    : ClassicHearing(std::make_shared<QBMediaTrack>(file), task) {}

/// A recorder starts the source that its analyser has when it is made, which would decode all of a
/// file, and an hour of blocks is a third of a gigabyte. The source comes to the analyser
/// afterwards.
ClassicHearing::ClassicHearing(const std::shared_ptr<QBMediaTrack>& track, const HearingTask& task)
    : ClassicHearing(std::make_shared<QBChordAnalyserGame>(nullptr, task.tuning), task) {
  analyser().setM_source(track);
  if (track->open()) m_decoding = track;
}

ClassicHearing::ClassicHearing(std::shared_ptr<QBSampleSource> live, const HearingTask& task)
    : ClassicHearing(std::make_shared<QBChordAnalyserStandard>(std::move(live), task.tuning),
                     task) {}

ClassicHearing::ClassicHearing(const std::shared_ptr<QBChordAnalyser>& analyser,
                               const HearingTask& task)
    : Hearing(analyser,
              std::make_unique<QBChordRecorder>(analyser, task.instrument, task.song, task.album)) {
}

ClassicHearing::~ClassicHearing() = default;

/// The last block may still grow until the file is at its end.
void ClassicHearing::readAhead() {
  constexpr int kWithTheGrowingOne = 2;
  const auto pending = [this] {
    return m_decoding->nmbOfBlocks() - m_decoding->nmbOfProcessedBlocks();
  };
  while (!m_endsEarly && m_decoding && pending() < kWithTheGrowingOne)
    if (!m_decoding->pullBuffer()) m_decoding.reset();
}

bool ClassicHearing::atEnd() const { return m_endsEarly || Hearing::atEnd(); }

bool ClassicHearing::cutShort() {
  m_endsEarly = true;
  return !Hearing::atEnd();
}

/// Blocks that nobody took would be stored.
void ClassicHearing::dropSound() {
  while (const auto block = source() ? source()->readBlockFromSamples() : nullptr)
    QBTabMgr::of(*block).deleteBlock(block);
  Hearing::dropSound();
  m_decoding.reset();
}

}  // namespace korvel
