// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/chords/QBChordAnalyserGame.h"

#include "analysis/spectrum/QBFFTGuitar.h"
#include "analysis/spectrum/SampleBuffer.h"
#include "audio/QBSampleSource.h"
#include "model/instruments/QBTuning.h"
#include "model/recorded/QBBlock.h"
#include "model/store/QBTabMgr.h"

namespace korvel {
namespace {

constexpr std::int64_t kTimestampOfFiles = 0;

}  // namespace

std::shared_ptr<QBFFT> QBChordAnalyserGame::nextFFT() {
  const platform::Ref<QBBlock> block = m_source() ? m_source()->readBlockFromSamples() : nullptr;
  if (!block) return nullptr;
  const auto spectrum = spectrumOf(block->toSamples(), kTimestampOfFiles);
  QBTabMgr::of(*block).deleteBlock(block);
  return spectrum;
}

}  // namespace korvel
