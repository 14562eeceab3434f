// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/chords/QBChordAnalyser.h"

#include "analysis/spectrum/QBFFTGuitar.h"
#include "analysis/spectrum/SampleBuffer.h"
#include "audio/QBSampleSource.h"
#include "model/instruments/QBTuning.h"

namespace korvel {

std::shared_ptr<QBFFTGuitar> spectrumOf(std::span<const std::int16_t> samples,
                                        std::int64_t timestamp) {
  const std::vector<double> values(samples.begin(), samples.end());
  auto spectrum = std::make_shared<QBFFTGuitar>(values, timestamp);
  spectrum->fft();
  return spectrum;
}

QBChordAnalyser::QBChordAnalyser(std::shared_ptr<QBSampleSource> source, QBTuning* tuning)
    : m_sampleSource(std::move(source)), m_pickTuning(tuning) {}

QBChordAnalyser::~QBChordAnalyser() = default;

std::shared_ptr<QBFFT> QBChordAnalyser::nextFFT() {
  const auto block = m_sampleSource ? m_sampleSource->readBuffer() : nullptr;
  if (!block) return nullptr;
  return spectrumOf(block->toSamples(), block->m_time);
}

QBChord* QBChordAnalyser::nextChord(QBSong*) { return nullptr; }

bool QBChordAnalyser::atEnd() const { return !m_sampleSource || m_sampleSource->eof(); }

double QBChordAnalyser::progress() const { return m_sampleSource ? m_sampleSource->progress() : 1; }

}  // namespace korvel
