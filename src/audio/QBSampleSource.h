// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>
#include <span>
#include <vector>

#include "audio/BlockRing.h"
#include "audio/QBSampleBlock.h"
#include "model/recorded/QBBlock.h"
#include "platform/persistence/Ref.h"
#include "platform/sound/QueueBuffer.h"

namespace korvel {

/// Where the analyser takes its blocks from, and itself the queue of live blocks: the audio thread
/// pushes, the analyser's thread reads, and neither ever waits. Nothing that was played is lost
/// before the reader is a whole BlockRing behind.
///
/// File sources override the second half; what stands here are the answers of a source without one.
class QBSampleSource {
 public:
  QBSampleSource() = default;
  QBSampleSource(const QBSampleSource&) = delete;
  QBSampleSource& operator=(const QBSampleSource&) = delete;
  virtual ~QBSampleSource() = default;

  /// Queues a copy of a buffer of exactly 32768 bytes; others are ignored, and the block is lost
  /// when the ring is full. For one audio thread at a time: takes no lock, and allocates nothing
  /// once the blocks are prepared.
  void pushBuffer(const platform::AudioTimeStamp& time, const platform::QueueBuffer& buffer);
  /// The oldest pending block; none when nothing is pending or another thread is just reading. Not
  /// for the audio thread.
  virtual std::unique_ptr<QBSampleBlock> readBuffer();
  /// Blocks that were lost, since as many as may wait did so. For any thread.
  std::int64_t nmbOfDroppedBlocks() const { return m_nmbOfDroppedBlocks; }

  virtual void startRecord(float volume) { m_volume = volume; }
  virtual void stopRecord() {}
  virtual bool eof() const { return true; }
  virtual bool isReading() const { return false; }
  virtual void setVolume(float) {}
  virtual float getVolume() const { return -100.0F; }

  /// The next block of a file.
  virtual platform::Ref<QBBlock> readBlockFromSamples() { return nullptr; }
  /// Reads one more slice of a file; false at its end.
  virtual bool pullBuffer() { return false; }
  virtual int workingStateInPercent() const { return 0; }

  /// The next samples of a source that is heard as a whole: one channel, 44100 a second, 1 being
  /// full scale. Empty at the end; valid until the next call.
  virtual std::span<const float> readSamples() { return {}; }
  /// How much of the blocks or samples of a file has been handed out, 0..1.
  virtual double progress() const { return 1; }

  const std::vector<std::int16_t>& samples() const { return m_samples; }

 protected:
  /// For who must not allocate on the audio thread. Not while blocks are pushed or read.
  void prepareBlocks() { m_blocks.prepare(); }

  std::vector<std::int16_t> m_samples;  ///< Of sources that hold all their samples at once.
  float m_volume = 0;
  std::mutex m_lock;  ///< Guards the reading end of m_blocks; the audio thread leaves it alone.

 private:
  BlockRing m_blocks;  ///< Pending.
  std::atomic<std::int64_t> m_nmbOfDroppedBlocks = 0;
};

}  // namespace korvel
