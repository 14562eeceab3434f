// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>

#include "platform/sound/AudioQueue.h"

namespace korvel {

class QBChordAnalyser;
class QBSampleBlock;
class QBSampleSource;

/// A stream of sound to the system's default output. It plays its three buffers round and round as
/// they are; what is added to the pending blocks is for whoever takes them. Main thread, but for
/// what says otherwise.
class QBAudioSpeaker {
 public:
  /// Posted, on any thread, when the queue does not run any more.
  static constexpr const char* kPlaybackQueueStopped = "playbackQueueStopped";
  /// What stop answers.
  static constexpr int kStopped = 0;
  static constexpr int kNoQueue = -50;

  explicit QBAudioSpeaker(QBChordAnalyser* analyser);
  QBAudioSpeaker(const QBAudioSpeaker&) = delete;
  QBAudioSpeaker& operator=(const QBAudioSpeaker&) = delete;
  ~QBAudioSpeaker();

  void SetupAudioFormat();
  /// After SetupAudioFormat. Throws AudioError.
  void SetupNewQueue();
  /// Throws AudioError.
  void start();
  /// Stops at once. The speaker counts as initialized until its queue is disposed of.
  int stop();
  void DisposeQueue();
  void dispose() { DisposeQueue(); }

  /// For any thread.
  void addBuffer(std::shared_ptr<QBSampleBlock> buffer);
  /// The first one that was added and not taken yet; none when there is none. For any thread.
  std::shared_ptr<QBSampleBlock> nextBuffer();

  /// The analyser's source.
  QBSampleSource* AudioBuffer() const;
  platform::AudioQueue* Queue() const { return mQueue.get(); }
  const platform::StreamDescription& DataFormat() const { return mDataFormat; }
  bool IsRunning() const { return mIsRunning; }
  bool IsInitialized() const { return mIsInitialized; }
  bool IsLooping() const { return mIsLooping; }

 private:
  static constexpr std::size_t kBuffers = 3;
  static constexpr std::uint32_t kBufferBytes = 32768;

  void makeQueue();
  void returnBuffer(platform::QueueBuffer& buffer);
  void noteRunning();

  QBChordAnalyser* mAnalyser;
  platform::StreamDescription mDataFormat;
  std::array<platform::QueueBuffer*, kBuffers> mBuffers{};
  std::atomic<bool> mIsRunning = false;
  std::atomic<bool> mIsDone = false;
  bool mIsLooping = false;
  bool mIsInitialized = false;
  // Nothing is counted, as the buffers go round unchanged.
  [[maybe_unused]] std::int64_t mCurrentPacket = 0;
  [[maybe_unused]] std::int32_t mNumPacketsToRead = 0;
  std::mutex m_buffersLock;
  std::deque<std::shared_ptr<QBSampleBlock>> m_buffers;  ///< Pending.
  std::unique_ptr<platform::AudioQueue> mQueue;
};

}  // namespace korvel
