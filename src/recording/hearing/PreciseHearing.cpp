// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/hearing/PreciseHearing.h"

#include "analysis/chords/PreciseAnalyser.h"
#include "audio/QBSampleSource.h"
#include "model/instruments/QBTuning.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBSong.h"
#include "recording/PreciseRecorder.h"

namespace korvel {

PreciseHearing::PreciseHearing(std::shared_ptr<QBSampleSource> sound, const HearingTask& task,
                               platform::Workers::Turn turn)
    : PreciseHearing(
          std::make_shared<PreciseAnalyser>(std::move(sound), task.tuning, task.settings, turn),
          task) {}

PreciseHearing::PreciseHearing(const HearingTask& task)
    : PreciseHearing(std::make_shared<PreciseAnalyser>(task.listening, task.tuning), task) {}

PreciseHearing::PreciseHearing(const std::shared_ptr<PreciseAnalyser>& analyser,
                               const HearingTask& task)
    : Hearing(analyser, std::make_unique<PreciseRecorder>(analyser, task.song, task.album)),
      m_heard(analyser) {}

PreciseHearing::~PreciseHearing() = default;

void PreciseHearing::wait() const { m_heard->wait(); }

const HeardSound* PreciseHearing::heard() const { return m_heard->heard(); }

bool PreciseHearing::cutShort() { return m_heard->cutShort(); }

void PreciseHearing::end() {
  Hearing::end();
  m_heard->giveUp();
}

}  // namespace korvel
