// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/hearing/PreciseHearing.h"

#include "analysis/chords/PreciseAnalyser.h"
#include "audio/QBSampleSource.h"
#include "model/instruments/QBTuning.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBSong.h"
#include "recording/PreciseRecorder.h"

namespace korvel {

PreciseHearing::PreciseHearing(std::shared_ptr<QBSampleSource> sound, const HearingTask& task)
    : PreciseHearing(
          std::make_shared<PreciseAnalyser>(std::move(sound), task.tuning, task.settings), task) {}

PreciseHearing::PreciseHearing(const std::shared_ptr<QBChordAnalyser>& analyser,
                               const HearingTask& task)
    : Hearing(analyser, std::make_unique<PreciseRecorder>(analyser, task.song, task.album)) {}

PreciseHearing::~PreciseHearing() = default;

bool PreciseHearing::cutShort() {
  const bool more = source()->progress() < 1;
  source()->stopRecord();
  return more;
}

}  // namespace korvel
