// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/QBChordAnalyserGame.h"

#include "analysis/QBFFTGuitar.h"
#include "analysis/SampleBuffer.h"
#include "audio/QBSampleSource.h"
#include "model/QBBlock.h"
#include "model/QBTabMgr.h"
#include "model/QBTuning.h"

namespace korvel {
namespace {

constexpr std::int64_t kTimestampOfFiles = 0;

}  // namespace

std::shared_ptr<QBFFT> QBChordAnalyserGame::nextFFT() {
  const platform::Ref<QBBlock> block = m_source() ? m_source()->readBlockFromSamples() : nullptr;
  if (!block) return nullptr;
  const auto spectrum = spectrumOf(block->toSamples(), kTimestampOfFiles);
  QBTabMgr::db().deleteBlock(block);
  return spectrum;
}

}  // namespace korvel
