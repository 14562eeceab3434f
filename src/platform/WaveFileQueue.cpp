// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/WaveFileQueue.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <utility>

#include "platform/AudioSystem.h"
#include "platform/FileError.h"

namespace korvel::platform {
namespace {

constexpr std::size_t kFramesOfPiece = 441;
constexpr std::chrono::milliseconds kNoBufferYet(1);

std::chrono::steady_clock::duration lasting(double seconds) {
  return std::chrono::duration_cast<std::chrono::steady_clock::duration>(
      std::chrono::duration<double>(seconds));
}

}  // namespace

WaveFileQueue::WaveFileQueue(const StreamDescription& description, Pace pace)
    : m_description(description), m_pace(pace) {}

WaveFileQueue::~WaveFileQueue() = default;

QueueBuffer& WaveFileQueue::allocateBuffer(std::uint32_t bytes) {
  auto& made = *m_buffers.emplace_back(std::make_unique<Buffer>());
  made.memory.resize(bytes);
  made.buffer.data = made.memory;
  made.buffer.dataByteSize = bytes;
  return made.buffer;
}

void WaveFileQueue::start() {
  stop();
  try {
    openFile();
  } catch (const FileError& error) {
    throw AudioError(error.what());
  }
  m_frames = 0;
  m_stopping = false;
  m_lost = false;
  m_running = true;
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
    if (!m_lost) closeFile();
  } catch (const FileError&) {
    m_lost = true;
  }
}

void WaveFileQueue::reset() {
  while (m_ring.pop()) continue;
}

AudioTimeStamp WaveFileQueue::currentTime() const {
  const auto now = std::chrono::nanoseconds(Clock::now().time_since_epoch()).count();
  return {.sampleTime = static_cast<double>(m_frames), .hostTime = static_cast<std::uint64_t>(now)};
}

QueueBuffer* WaveFileQueue::nextBuffer() {
  QueueBuffer* next = m_ring.pop();
  while (!next && m_pace == Pace::fastest && waitUntil(Clock::now() + kNoBufferYet))
    next = m_ring.pop();
  return next;
}

void WaveFileQueue::scale(std::span<std::int16_t> samples) const {
  const float volume = m_volume;
  if (volume == 1) return;
  for (std::int16_t& sample : samples)
    sample = static_cast<std::int16_t>(
        std::lrint(std::clamp(volume * static_cast<float>(sample), -32768.0F, 32767.0F)));
}

bool WaveFileQueue::isStopping() const {
  const std::lock_guard lock(m_lock);
  return m_stopping;
}

void WaveFileQueue::run() {
  tell();
  try {
    moveAll();
  } catch (const std::exception&) {
    m_lost = true;
  }
  m_running = false;
  tell();
}

void WaveFileQueue::moveAll() {
  std::vector<std::int16_t> scratch(kFramesOfPiece * m_description.channelsPerFrame);
  const auto start = Clock::now();
  std::uint64_t frames = 0;
  bool goesOn = true;
  while (goesOn) {
    frames += kFramesOfPiece;
    const double seconds = static_cast<double>(frames) / m_description.sampleRate;
    goesOn =
        waitUntil(m_pace == Pace::realTime ? start + lasting(seconds) : start) && move(scratch);
  }
}

/// False when the queue is to stop.
bool WaveFileQueue::waitUntil(Clock::time_point time) {
  std::unique_lock lock(m_lock);
  return !m_stopAsked.wait_until(lock, time, [this] { return m_stopping; });
}

void WaveFileQueue::tell() const {
  if (m_listener) m_listener();
}

// ---- a microphone

WaveFileInput::WaveFileInput(std::filesystem::path file, Pace pace, InputCallback callback)
    : WaveFileQueue(kLiveSound, pace), m_file(std::move(file)), m_callback(std::move(callback)) {}

void WaveFileInput::openFile() {
  m_reader.emplace(m_file);
  m_filling = nullptr;
}

void WaveFileInput::reset() {
  WaveFileQueue::reset();
  m_filling = nullptr;
}

bool WaveFileInput::move(std::span<std::int16_t> scratch) {
  const auto samples = scratch.first(m_reader->read(scratch));
  scale(samples);
  deliver(std::as_bytes(samples));
  const bool atEnd = samples.size() < scratch.size();
  if (atEnd && m_filling) handOver();
  return !atEnd;
}

void WaveFileInput::deliver(std::span<const std::byte> sound) {
  while (!sound.empty()) {
    if (!m_filling && (m_filling = nextBuffer())) {
      m_filling->dataByteSize = 0;
      m_start = currentTime();
    }
    // Without a buffer the sound is lost, and time goes on.
    auto taken = sound.size();
    if (m_filling) {
      const auto room = m_filling->data.subspan(m_filling->dataByteSize);
      taken = std::min(taken, room.size());
      std::ranges::copy(sound.first(taken), room.begin());
      m_filling->dataByteSize += static_cast<std::uint32_t>(taken);
    }
    m_frames += taken / bytesPerFrame();
    sound = sound.subspan(taken);
    if (m_filling && m_filling->dataByteSize == m_filling->data.size()) handOver();
  }
}

void WaveFileInput::handOver() {
  QueueBuffer& full = *std::exchange(m_filling, nullptr);
  m_callback(full, m_start, full.dataByteSize / static_cast<std::uint32_t>(bytesPerFrame()));
}

// ---- a speaker

WaveFileOutput::WaveFileOutput(std::filesystem::path file, const StreamDescription& description,
                               Pace pace, OutputCallback callback)
    : WaveFileQueue(description, pace), m_file(std::move(file)), m_callback(std::move(callback)) {}

void WaveFileOutput::openFile() {
  m_writer.emplace(m_file, static_cast<int>(description().sampleRate),
                   static_cast<int>(description().channelsPerFrame));
  m_playing = nullptr;
}

void WaveFileOutput::reset() {
  WaveFileQueue::reset();
  m_playing = nullptr;
}

bool WaveFileOutput::move(std::span<std::int16_t> scratch) {
  const auto bytes = std::as_writable_bytes(scratch);
  const std::size_t taken = take(bytes);
  if (isStopping()) return false;
  std::ranges::fill(bytes.subspan(taken), std::byte{});
  scale(scratch);
  m_writer->write(scratch);
  m_frames += scratch.size_bytes() / bytesPerFrame();
  return true;
}

/// How many of the bytes it filled; fewer than all when nothing more is enqueued.
std::size_t WaveFileOutput::take(std::span<std::byte> sound) {
  std::size_t taken = 0;
  while (taken < sound.size() && !isStopping()) {
    if (!m_playing) {
      m_playing = nextBuffer();
      m_played = 0;
    }
    if (!m_playing) return taken;
    const auto rest = m_playing->sound().subspan(m_played);
    const auto count = std::min(rest.size(), sound.size() - taken);
    std::ranges::copy(rest.first(count), sound.subspan(taken).begin());
    taken += count;
    m_played += count;
    if (count == rest.size()) m_callback(*std::exchange(m_playing, nullptr));
  }
  return taken;
}

void WaveFileOutput::closeFile() {
  m_writer->finish();
  m_writer.reset();
}

}  // namespace korvel::platform
