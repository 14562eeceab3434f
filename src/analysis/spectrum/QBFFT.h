// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "analysis/spectrum/QBFrequency.h"
#include "music/ChordStep.h"
#include "platform/numerics/FourierTransform.h"
#include "platform/persistence/Ref.h"

namespace korvel {

class QBBlock;
class QBTuning;

/// One block of samples and its spectrum: made from the block, transformed once with `fft`, then
/// asked for its `frequencies`. Belongs to the thread that drives the analysis.
class QBFFT {
 public:
  static constexpr std::size_t m_numSamples = kSamplesOfChord;
  /// Bins whose magnitudes are computed, about 40 to 805 Hz.
  static constexpr std::size_t kFirstBin = 15;
  static constexpr std::size_t kEndBin = 300;

  /// Copies the samples, -32768..32767; a shorter block is followed by zeros, a longer one throws
  /// std::out_of_range.
  QBFFT(std::span<const double> samples, std::int64_t timestamp);
  QBFFT(const QBFFT&) = delete;
  QBFFT& operator=(const QBFFT&) = delete;
  virtual ~QBFFT();

  /// The transform that all blocks share, made on first use. destroySetup is for the end of the
  /// program: no `fft` may follow it.
  static platform::RealTransform& setup();
  static void destroySetup();

  /// Windows the samples in place and fills `amps`.
  void fft();
  /// The tones that were heard, loudest first and computed once, in that tuning; empty when there
  /// is none. A plain spectrum knows no tones.
  virtual std::span<const QBFrequency> frequencies(QBTuning* tuning);

  /// 16384 values, as they came before `fft` and windowed after it.
  std::span<const double> samples() const;
  /// 16384 magnitudes, unscaled, which is twice those of the plain discrete transform; zero before
  /// `fft`, and always outside [kFirstBin, kEndBin).
  std::span<const double> amps() const;
  /// Of the live block; 0 for a file.
  std::int64_t timestamp() const { return m_timestamp; }
  /// The stored samples of the block, if any.
  QBBlock* block() const { return m_block; }
  void setBlock(QBBlock* block);

 protected:
  std::vector<QBFrequency> m_frequencies;

 private:
  struct Buffers;
  class Pool;

  std::shared_ptr<Pool> m_pool;
  std::unique_ptr<Buffers> m_buffers;
  std::int64_t m_timestamp;
  platform::Ref<QBBlock> m_block;
};

}  // namespace korvel
