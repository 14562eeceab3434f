// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/chords/Listening.h"

#include <atomic>
#include <utility>

#include "analysis/bands/BandChords.h"
#include "analysis/bands/BandVoices.h"
#include "analysis/bands/GrippedChords.h"
#include "analysis/beats/SpanNames.h"
#include "analysis/beats/SpanProbabilities.h"
#include "analysis/chords/Transcription.h"
#include "audio/QBSampleSource.h"
#include "platform/sound/SampleRate.h"

namespace korvel {

/// What the worker and the owner have in common.
struct Listening::Work {
  Work(std::shared_ptr<QBSampleSource> from, const OpenPitches& strings,
       const HearingSettings& chosen)
      : source(std::move(from)), open(strings), settings(chosen) {}
  void listen(const std::stop_token& ending);
  void keep(Transcription& listened);
  void keepBand(const Transcription& listened);
  bool gather(const Transcription& listened, const std::stop_token& ending);

  std::shared_ptr<QBSampleSource> source;
  OpenPitches open;
  HearingSettings settings;
  std::atomic<double> progress = 0;
  Heard heard{};  ///< The worker's until the job is over.
};

void Listening::Work::listen(const std::stop_token& ending) {
  Transcription transcription(source, open, settings);
  while (transcription.step()) {
    if (ending.stop_requested()) return;
    progress = transcription.progress();
  }
  keep(transcription);
  const rhythm::Rhythm& rhythm = heard.sound.rhythm;
  if (!rhythm.isFree && !rhythm.reading.events.empty()) heard.grid = settings.grid;
  if (heard.grid == Grid::slices && !gather(transcription, ending)) return;
  progress = 1;
}

void Listening::Work::keep(Transcription& listened) {
  const precise::Findings& found = listened.result();
  heard.sound = {found.notes,
                 found.doubtful,
                 listened.takeRhythm(),
                 settings.rhythm,
                 static_cast<double>(listened.samples()) / platform::kSampleRate,
                 found.tuningOffset,
                 settings.fingering.capo};
  heard.sound.otherTuning = listened.otherTuning();
  open = listened.open();
  if (listened.isBand()) return keepBand(listened);
  rhythm::Reading& reading = heard.sound.rhythm.reading;
  tellPitchClasses(heard.sound.notes, reading);
  tellProbabilities(heard.sound.notes, reading);
}

/// In bars, however free its rhythm: nothing else can be told of it.
void Listening::Work::keepBand(const Transcription& listened) {
  HeardSound& sound = heard.sound;
  sound.isBand = true;
  sound.rhythm.isFree = false;
  sound.doubtful.clear();
  if (!settings.rhythm.metre && !settings.rhythm.barLine)
    tellBandBars(listened.sound(), sound.notes, sound.rhythm.reading);
  tellBandChords(listened.sound(), sound.notes, sound.rhythm.reading);
  sound.voices = hearVoices(listened.sound(), settings.voices, sound.rhythm.reading,
                            {open, settings.fingering});
  gripChords(open, settings.fingering, *settings.strum, sound);
}

/// Whether it came to its end.
bool Listening::Work::gather(const Transcription& listened, const std::stop_token& ending) {
  platform::Slices gathering = precise::gatherBlocks(listened.result(), listened.samples(), open,
                                                     settings.fingering, heard.blocks);
  while (gathering.next())
    if (ending.stop_requested()) return false;
  return true;
}

Listening::Listening(std::shared_ptr<QBSampleSource> source, const OpenPitches& open,
                     const HearingSettings& settings, platform::Workers::Turn turn)
    : m_work(std::make_shared<Work>(std::move(source), open, settings)),
      m_job(platform::Workers::ofProcess().begin(
          [work = m_work](const std::stop_token& ending) { work->listen(ending); }, turn)) {}

Listening::~Listening() { m_job->stop(); }

double Listening::progress() const { return m_work->progress; }

/// What did not begin has heard nothing, and need not wait for a thread to find that out.
bool Listening::cutShort() {
  const bool more = m_work->source->progress() < 1;
  m_work->source->stopRecord();
  m_job->run();
  return more;
}

Listening::Heard Listening::take() {
  m_job->requireDone();
  return std::move(m_work->heard);
}

}  // namespace korvel
