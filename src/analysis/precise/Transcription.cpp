// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/precise/Transcription.h"

#include <cmath>
#include <utility>

#include "audio/QBSampleSource.h"
#include "model/QBString.h"
#include "model/QBTuning.h"

namespace korvel::precise {
namespace {

/// Of the recording, worked on at one step.
constexpr double kSecondsOfStep = 5;
constexpr std::size_t kSamplesOfStep = static_cast<std::size_t>(kSecondsOfStep * 44100);
/// Reading a compressed file takes about this share of the time.
constexpr double kShareOfReading = 0.25;

int midiOf(double hertz) { return static_cast<int>(std::lround(69 + 12 * std::log2(hertz / 440))); }

}  // namespace

OpenStrings openStringsOf(QBTuning& tuning) {
  OpenStrings open{};
  for (int string = 0; string < kStrings; ++string)
    open[static_cast<std::size_t>(string)] =
        midiOf(tuning.findStringByPosition(string)->frequency());
  return open;
}

Transcription::Transcription(std::shared_ptr<QBSampleSource> source, const OpenStrings& open,
                             const Settings& settings)
    : m_source(std::move(source)),
      m_engine(settings.sensitivity),
      m_fingering(open, settings.fingering) {}

bool Transcription::step() {
  if (m_done) return false;
  if (!m_read) {
    read();
    return true;
  }
  if (m_engine.step(kSecondsOfStep)) return true;
  m_result = m_engine.take();
  m_fingering.place(m_result.notes);
  m_done = true;
  return false;
}

void Transcription::read() {
  for (std::size_t count = 0; count < kSamplesOfStep && !m_read;) {
    const auto samples = m_source->readSamples();
    m_engine.add(samples);
    count += samples.size();
    m_samples += samples.size();
    m_read = samples.empty();
  }
}

double Transcription::progress() const {
  if (m_done) return 1;
  if (!m_read) return kShareOfReading * m_source->progress();
  return kShareOfReading + (1 - kShareOfReading) * m_engine.progress();
}

}  // namespace korvel::precise
