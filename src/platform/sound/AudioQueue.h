// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>

#include "platform/sound/QueueBuffer.h"
#include "platform/sound/SampleRate.h"

namespace korvel::platform {

/// How the samples of a queue lie in its buffers: linear PCM, native byte order, interleaved. A
/// packet is one frame.
struct StreamDescription {
  double sampleRate = 0;  ///< Frames a second.
  std::uint32_t bytesPerPacket = 0;
  std::uint32_t framesPerPacket = 0;
  std::uint32_t bytesPerFrame = 0;
  std::uint32_t channelsPerFrame = 0;
  std::uint32_t bitsPerChannel = 0;  ///< Signed integers.

  bool operator==(const StreamDescription&) const = default;
};

/// What live sound is recorded and played as.
inline constexpr StreamDescription kLiveSound{kSampleRate, 4, 1, 4, 2, 16};

/// A stream of sound between a device and us. Its buffers go round: whoever made the queue enqueues
/// them, the queue fills or plays them on the audio thread and hands each one back by the callback,
/// which may enqueue it again. Main thread, but for what says otherwise.
class AudioQueue {
 public:
  /// A buffer was filled: with so many packets, the first of which was recorded at start. Audio
  /// thread.
  using InputCallback =
      std::function<void(QueueBuffer&, const AudioTimeStamp& start, std::uint32_t packets)>;
  /// A buffer was played. Audio thread; while the queue does not run, the caller's.
  using OutputCallback = std::function<void(QueueBuffer&)>;
  /// The queue began or ended to run: for start and stop on their thread, for a lost device on
  /// another one, where it must not wait for the main thread.
  using RunningListener = std::function<void()>;

  AudioQueue() = default;
  AudioQueue(const AudioQueue&) = delete;
  AudioQueue& operator=(const AudioQueue&) = delete;
  /// Stops the queue first.
  virtual ~AudioQueue() = default;

  virtual const StreamDescription& description() const = 0;
  /// Memory of the queue's own, zeroed; its size is all of it. Stays until the queue's end. At most
  /// BufferRing::kCapacity of them, and only while the queue does not run.
  virtual QueueBuffer& allocateBuffer(std::uint32_t bytes) = 0;
  /// Puts a buffer at the end of those to be filled or played. While the queue runs, for the
  /// callback only; waits for nothing and allocates nothing. When no buffer is left, silence is
  /// played, and what is recorded is lost.
  virtual void enqueue(QueueBuffer& buffer) = 0;
  /// What was enqueued shall reach the device without waiting for more. Also for the callback.
  virtual void flush() = 0;

  /// Throws AudioError when the device cannot be opened.
  virtual void start() = 0;
  /// Stops at once, with what is enqueued unplayed. No callback runs any more when this returns.
  virtual void stop() = 0;
  /// Forgets what is enqueued; only while the queue does not run.
  virtual void reset() = 0;
  /// For any thread.
  virtual bool isRunning() const = 0;
  /// The device went away or failed while the queue ran, which has ended by itself. For any thread.
  virtual bool isLost() const = 0;
  /// To be called before start.
  virtual void onRunningChanged(RunningListener listener) = 0;

  /// Frames since the start that were recorded, or that could be heard by now, silence for want of
  /// buffers included. Also for the callback. Stays where it was when the queue ends.
  virtual AudioTimeStamp currentTime() const = 0;
  /// 0 is silent, 1 is as it comes. For any thread.
  virtual void setVolume(float volume) = 0;
  virtual float volume() const = 0;
};

}  // namespace korvel::platform
