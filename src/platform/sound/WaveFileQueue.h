// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <filesystem>
#include <mutex>
#include <optional>
#include <span>
#include <thread>
#include <utility>

#include "platform/media/WaveFileReader.h"
#include "platform/media/WaveFileWriter.h"
#include "platform/sound/BufferQueue.h"

namespace korvel::platform {

/// How fast sound passes between a file and a queue.
enum class Pace {
  realTime,  ///< As with a device: what is not enqueued in time is lost, or silence.
  fastest,   ///< As soon as there is a buffer.
};

/// A queue with a WAV file in the place of the device, and a thread of its own in that of the audio
/// system's. A file that fails in the middle is a lost device.
class WaveFileQueue : public BufferQueue {
 public:
  void start() override;
  void stop() override;
  AudioTimeStamp currentTime() const override { return {static_cast<double>(frames()), now()}; }

 protected:
  template <class Callback>
  WaveFileQueue(const StreamDescription& description, Pace pace, Callback callback)
      : BufferQueue(description, std::move(callback)), m_pace(pace) {}

  /// Opens the file at its beginning. Throws FileError.
  virtual void openFile() = 0;
  /// Moves samples between file and buffers; false at the end of the file. Runs on the thread.
  virtual bool move(std::span<std::int16_t> piece) = 0;
  /// Called after the thread's end. Throws FileError.
  virtual void closeFile() {}

  bool waitForBuffer() override;

 private:
  using Clock = std::chrono::steady_clock;

  void run();
  void moveAll();
  bool waitUntil(Clock::time_point time);

  const Pace m_pace;
  std::thread m_thread;
  std::mutex m_lock;  ///< Guards m_stopping.
  std::condition_variable m_stopAsked;
  bool m_stopping = false;
};

/// Records a file. At its end the last buffer comes as full as it is, and the queue stops running.
class WaveFileInput final : public WaveFileQueue {
 public:
  WaveFileInput(std::filesystem::path file, Pace pace, InputCallback callback);
  ~WaveFileInput() override { stop(); }

 private:
  void openFile() override;
  bool move(std::span<std::int16_t> piece) override;

  std::filesystem::path m_file;
  std::optional<WaveFileReader> m_reader;
};

/// Plays into a file, which appears when the queue is stopped.
class WaveFileOutput final : public WaveFileQueue {
 public:
  WaveFileOutput(std::filesystem::path file, const StreamDescription& description, Pace pace,
                 OutputCallback callback);
  ~WaveFileOutput() override { stop(); }

 private:
  void openFile() override;
  bool move(std::span<std::int16_t> piece) override;
  void closeFile() override;

  std::filesystem::path m_file;
  std::optional<WaveFileWriter> m_writer;
};

}  // namespace korvel::platform
