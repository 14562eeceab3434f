// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <memory>
#include <string>

#include "platform/sound/AudioQueue.h"

namespace korvel {

class QBChordAnalyser;
class QBSampleSource;

/// Records from an input device into the source of an analyser, block by block. Main thread, but
/// for the queue's callback, which allocates nothing and waits for nothing.
class QBAudioMicrophone {
 public:
  /// Frames of a block.
  static constexpr std::uint32_t kPackets = 8192;

  /// The analyser must have its source from StartRecord to StopRecord.
  explicit QBAudioMicrophone(QBChordAnalyser* analyser);
  QBAudioMicrophone(const QBAudioMicrophone&) = delete;
  QBAudioMicrophone& operator=(const QBAudioMicrophone&) = delete;
  ~QBAudioMicrophone();

  /// As AudioSystem names it; none is the system's default. For the next start.
  void setDevice(std::string device) { m_device = std::move(device); }
  void SetupAudioFormat();
  /// The volume has no meaning for a microphone. Throws AudioError, and does not run then.
  void StartRecord(float volume);
  void StopRecord();

  /// From start to stop, also when the device has ended in between.
  bool isRunning() const { return mIsRunning; }
  /// Whether it runs but nothing comes any more: the device is gone, or the file in its place is
  /// over.
  bool hasEnded() const;
  /// Whether the device went away since the last start.
  bool isLost() const;
  /// The source that receives the blocks.
  QBSampleSource* AudioBuffer() const;
  /// Zeroes what the buffer holds.
  static void fillWithZeros(platform::QueueBuffer& buffer);
  /// 0 when it does not run.
  float getVolume() const;
  void setVolume(float) {}
  /// Less than half a second old by the device's clock; false when it does not run, and for times
  /// to come.
  bool timeIsValid(const platform::AudioTimeStamp& time) const;

  const platform::StreamDescription& recordFormat() const { return mRecordFormat; }

 private:
  static constexpr std::size_t kBuffers = 3;

  void makeQueue();
  void freeQueue();
  void takeBuffer(platform::QueueBuffer& buffer, const platform::AudioTimeStamp& start,
                  std::uint32_t packets);

  QBChordAnalyser* m_analyser;
  std::string m_device;
  QBSampleSource* m_target = nullptr;  ///< AudioBuffer, for the audio thread.
  std::atomic<bool> mIsRunning = false;
  bool m_wasLost = false;
  std::int64_t mRecordPacket = 0;
  platform::StreamDescription mRecordFormat;
  std::unique_ptr<platform::AudioQueue> mQueue;
  std::array<platform::QueueBuffer*, kBuffers> mBuffers{};
};

}  // namespace korvel
