// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <thread>
#include <vector>

#include "platform/AudioQueue.h"
#include "platform/BufferRing.h"
#include "platform/WaveFileReader.h"
#include "platform/WaveFileWriter.h"

namespace korvel::platform {

/// How fast sound passes between a file and a queue.
enum class Pace {
  realTime,  ///< As with a device: what is not enqueued in time is lost, or silence.
  fastest,   ///< As soon as there is a buffer.
};

/// A queue with a WAV file in the place of the device, and a thread of its own in that of the audio
/// system's. A file that fails in the middle is a lost device.
class WaveFileQueue : public AudioQueue {
 public:
  WaveFileQueue(const StreamDescription& description, Pace pace);
  ~WaveFileQueue() override;

  const StreamDescription& description() const override { return m_description; }
  QueueBuffer& allocateBuffer(std::uint32_t bytes) override;
  void enqueue(QueueBuffer& buffer) override { m_ring.push(buffer); }
  void flush() override {}
  void start() override;
  void stop() override;
  void reset() override;
  bool isRunning() const override { return m_running; }
  bool isLost() const override { return m_lost; }
  void onRunningChanged(RunningListener listener) override { m_listener = std::move(listener); }
  AudioTimeStamp currentTime() const override;
  void setVolume(float volume) override { m_volume = volume; }
  float volume() const override { return m_volume; }

 protected:
  /// From its beginning. Throws FileError.
  virtual void openFile() = 0;
  /// Moves samples between file and buffers; false at the end of the file. On the thread.
  virtual bool move(std::span<std::int16_t> scratch) = 0;
  /// After the thread's end. Throws FileError.
  virtual void closeFile() {}

  /// The next enqueued buffer; none when there is none in time, or the queue is to stop.
  QueueBuffer* nextBuffer();
  /// As loud as the volume says.
  void scale(std::span<std::int16_t> samples) const;
  std::size_t bytesPerFrame() const { return m_description.bytesPerFrame; }
  bool isStopping() const;

  std::atomic<std::uint64_t> m_frames = 0;  ///< Since the start.

 private:
  using Clock = std::chrono::steady_clock;
  struct Buffer {
    std::vector<std::byte> memory;
    QueueBuffer buffer;
  };

  void run();
  void moveAll();
  bool waitUntil(Clock::time_point time);
  void tell() const;

  const StreamDescription m_description;
  const Pace m_pace;
  std::vector<std::unique_ptr<Buffer>> m_buffers;
  BufferRing m_ring;
  RunningListener m_listener;
  std::thread m_thread;
  mutable std::mutex m_lock;  ///< Of m_stopping.
  std::condition_variable m_stopAsked;
  bool m_stopping = false;
  std::atomic<bool> m_running = false;
  std::atomic<bool> m_lost = false;
  std::atomic<float> m_volume = 1;
};

/// Records a file. At its end the last buffer comes as full as it is, and the queue stops running.
class WaveFileInput final : public WaveFileQueue {
 public:
  WaveFileInput(std::filesystem::path file, Pace pace, InputCallback callback);
  ~WaveFileInput() override { stop(); }
  void reset() override;

 private:
  void openFile() override;
  bool move(std::span<std::int16_t> scratch) override;
  void deliver(std::span<const std::byte> sound);
  void handOver();

  std::filesystem::path m_file;
  InputCallback m_callback;
  std::optional<WaveFileReader> m_reader;
  QueueBuffer* m_filling = nullptr;
  AudioTimeStamp m_start;  ///< Of m_filling.
};

/// Plays into a file, which appears when the queue is stopped.
class WaveFileOutput final : public WaveFileQueue {
 public:
  WaveFileOutput(std::filesystem::path file, const StreamDescription& description, Pace pace,
                 OutputCallback callback);
  ~WaveFileOutput() override { stop(); }
  void reset() override;

 private:
  void openFile() override;
  bool move(std::span<std::int16_t> scratch) override;
  void closeFile() override;
  std::size_t take(std::span<std::byte> sound);

  std::filesystem::path m_file;
  OutputCallback m_callback;
  std::optional<WaveFileWriter> m_writer;
  QueueBuffer* m_playing = nullptr;
  std::size_t m_played = 0;  ///< Bytes of m_playing.
};

}  // namespace korvel::platform
