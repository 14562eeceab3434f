// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/sound/WaveFileQueue.h"

#include <exception>
#include <utility>
#include <vector>

#include "platform/files/FileError.h"
#include "platform/sound/AudioSystem.h"

namespace korvel::platform {
namespace {

constexpr std::size_t kFramesOfPiece = 441;
constexpr std::chrono::milliseconds kNoBufferYet(1);

std::chrono::steady_clock::duration lasting(double seconds) {
  return std::chrono::duration_cast<std::chrono::steady_clock::duration>(
      std::chrono::duration<double>(seconds));
}

}  // namespace

void WaveFileQueue::start() {
  stop();
  try {
    openFile();
  } catch (const FileError& error) {
    throw AudioError(error.text());
  }
  m_stopping = false;
  begin();
  m_thread = std::thread([this] { run(); });
}

void WaveFileQueue::stop() {
  if (!m_thread.joinable()) return;
  {
    const std::lock_guard lock(m_lock);
    m_stopping = true;
  }
  m_stopAsked.notify_all();
  m_thread.join();
  try {
    if (!isLost()) closeFile();
  } catch (const FileError&) {
    lose();
  }
  end();
}

void WaveFileQueue::run() {
  try {
    moveAll();
  } catch (const std::exception&) {
    lose();
  }
}

void WaveFileQueue::moveAll() {
  std::vector<std::int16_t> piece(kFramesOfPiece * description().channelsPerFrame);
  const auto start = Clock::now();
  double seconds = 0;
  bool goesOn = true;
  while (goesOn) {
    seconds += kFramesOfPiece / description().sampleRate;
    const auto due = m_pace == Pace::realTime ? start + lasting(seconds) : start;
    if (!waitUntil(due)) return;
    goesOn = move(piece);
  }
  end();
}

/// False when the queue is to stop.
bool WaveFileQueue::waitUntil(Clock::time_point time) {
  std::unique_lock lock(m_lock);
  return !m_stopAsked.wait_until(lock, time, [this] { return m_stopping; });
}

bool WaveFileQueue::waitForBuffer() {
  return m_pace == Pace::fastest && waitUntil(Clock::now() + kNoBufferYet);
}

// ---- a microphone

WaveFileInput::WaveFileInput(std::filesystem::path file, Pace pace, InputCallback callback)
    : WaveFileQueue(kLiveSound, pace, std::move(callback)), m_file(std::move(file)) {}

void WaveFileInput::openFile() { m_reader.emplace(m_file); }

bool WaveFileInput::move(std::span<std::int16_t> piece) {
  const auto samples = piece.first(m_reader->read(piece));
  record(std::as_bytes(samples));
  const bool atEnd = samples.size() < piece.size();
  if (atEnd) handBackRest();
  return !atEnd;
}

// ---- a speaker

WaveFileOutput::WaveFileOutput(std::filesystem::path file, const StreamDescription& description,
                               Pace pace, OutputCallback callback)
    : WaveFileQueue(description, pace, std::move(callback)), m_file(std::move(file)) {}

void WaveFileOutput::openFile() {
  m_writer.emplace(m_file, static_cast<int>(description().sampleRate),
                   static_cast<int>(description().channelsPerFrame));
}

bool WaveFileOutput::move(std::span<std::int16_t> piece) {
  play(std::as_writable_bytes(piece));
  m_writer->write(piece);
  return true;
}

void WaveFileOutput::closeFile() {
  m_writer->finish();
  m_writer.reset();
}

}  // namespace korvel::platform
