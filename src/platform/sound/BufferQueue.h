// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <span>
#include <vector>

#include "platform/sound/AudioQueue.h"
#include "platform/sound/BufferRing.h"

namespace korvel::platform {

/// The half of a queue that knows no device: its buffers, its state, and how sound moves between
/// the buffers and the chunks, of any number of frames, that a device takes or gives.
class BufferQueue : public AudioQueue {
 public:
  /// Of 16-bit samples; throws AudioError for others.
  BufferQueue(const StreamDescription& description, InputCallback callback);
  BufferQueue(const StreamDescription& description, OutputCallback callback);

  const StreamDescription& description() const override { return m_description; }
  QueueBuffer& allocateBuffer(std::uint32_t bytes) override;
  void enqueue(QueueBuffer& buffer) override;
  void flush() override {}
  void reset() override;
  bool isRunning() const override { return m_running; }
  bool isLost() const override { return m_lost; }
  void onRunningChanged(RunningListener listener) override { m_listener = std::move(listener); }
  void setVolume(float volume) override { m_volume = volume; }
  float volume() const override { return m_volume; }

 protected:
  // For the derived class, which says when the queue runs; end and lose do nothing while it does
  // not.
  void begin();
  void end();
  /// For any thread.
  void lose();

  // For one audio thread at a time: wait for nothing, allocate nothing, throw nothing. Without
  // effect, and silent, when the queue does not run.
  /// Fills buffers with whole frames that were recorded just now and calls back for each full one.
  void record(std::span<const std::byte> chunk);
  /// Nothing more will come: calls back for the buffer that is being filled, as full as it is.
  void handBackRest();
  /// Fills the chunk from the buffers and calls back for each one that was played.
  void play(std::span<std::byte> chunk);

  /// Called when no buffer is left; answers whether to look again. For queues that no device
  /// drives.
  virtual bool waitForBuffer() { return false; }

  /// How many frames were recorded or played since the start.
  std::uint64_t frames() const { return m_frames; }
  static std::uint64_t now();

 private:
  struct Memory {
    std::vector<std::byte> bytes;
    QueueBuffer buffer;
  };

  /// Plays buffers into the chunk and answers the part of it that is left.
  std::span<std::byte> playBuffers(std::span<std::byte> chunk);
  bool hasBuffer();
  std::size_t fill(std::span<const std::byte> chunk, std::uint64_t end);
  void stamp(std::uint64_t framesLeft, std::uint64_t end);
  void handBackFilled();
  std::size_t drain(std::span<std::byte> chunk);
  void handBackPlayed();
  void applyVolume(std::span<std::byte> sound) const;
  void tell() const;

  const StreamDescription m_description;
  const InputCallback m_filled;
  const OutputCallback m_played;
  RunningListener m_listener;
  std::deque<Memory> m_memory;
  BufferRing m_ring;
  QueueBuffer* m_buffer = nullptr;  ///< Being filled or played; the audio thread's own.
  std::size_t m_offset = 0;         ///< How many of its bytes are done.
  AudioTimeStamp m_start;           ///< When the buffer that is being filled begins.
  std::atomic<std::uint64_t> m_frames = 0;
  std::atomic<float> m_volume = 1.0F;
  std::atomic<bool> m_running = false;
  std::atomic<bool> m_lost = false;
};

}  // namespace korvel::platform
