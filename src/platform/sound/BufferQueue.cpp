// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/sound/BufferQueue.h"

#include <algorithm>
#include <cassert>
#include <chrono>
#include <cstring>
#include <utility>

#include "platform/sound/AudioSystem.h"

namespace korvel::platform {
namespace {

const StreamDescription& checked(const StreamDescription& description) {
  if (description.bitsPerChannel == 16) return description;
  throw AudioError(phrase("Message", "sound of %1 bits cannot be recorded or played; 16 bits can"),
                   description.bitsPerChannel);
}

}  // namespace

BufferQueue::BufferQueue(const StreamDescription& description, InputCallback callback)
    : m_description(checked(description)), m_filled(std::move(callback)) {}

BufferQueue::BufferQueue(const StreamDescription& description, OutputCallback callback)
    : m_description(checked(description)), m_played(std::move(callback)) {}

QueueBuffer& BufferQueue::allocateBuffer(std::uint32_t bytes) {
  assert(bytes >= m_description.bytesPerFrame && m_memory.size() < BufferRing::kCapacity);
  Memory& memory = m_memory.emplace_back();
  memory.bytes.resize(bytes);
  memory.buffer.data = memory.bytes;
  memory.buffer.dataByteSize = bytes;
  return memory.buffer;
}

void BufferQueue::enqueue(QueueBuffer& buffer) {
  [[maybe_unused]] const bool taken = m_ring.push(buffer);
  assert(taken);
}

void BufferQueue::reset() {
  m_buffer = nullptr;
  while (m_ring.pop() != nullptr) {
  }
}

void BufferQueue::begin() {
  if (m_filled) m_offset = 0;  // a buffer holds sound of one recording only
  m_frames = 0;
  m_lost = false;
  m_running = true;
  tell();
}

void BufferQueue::end() {
  if (m_running.exchange(false)) tell();
}

void BufferQueue::lose() {
  // Whoever sees that the queue has ended is to see why.
  if (m_running) m_lost = true;
  end();
}

void BufferQueue::tell() const {
  if (m_listener) m_listener();
}

void BufferQueue::record(std::span<const std::byte> chunk) {
  if (!m_running) return;
  const std::uint64_t end = now();
  while (!chunk.empty() && hasBuffer()) chunk = chunk.subspan(fill(chunk, end));
  m_frames += chunk.size() / m_description.bytesPerFrame;  // for which there was no buffer
}

void BufferQueue::play(std::span<std::byte> chunk) {
  // A server may go on asking when the device is lost, for the sake of another one.
  if (m_running) chunk = playBuffers(chunk);
  std::ranges::fill(chunk, std::byte{});
}

std::span<std::byte> BufferQueue::playBuffers(std::span<std::byte> chunk) {
  m_frames += chunk.size() / m_description.bytesPerFrame;
  while (!chunk.empty() && hasBuffer()) {
    const std::size_t played = drain(chunk);
    if (played == 0) break;  // an empty buffer that comes back for ever would hold us here
    chunk = chunk.subspan(played);
  }
  return chunk;
}

bool BufferQueue::hasBuffer() {
  if (m_buffer) return true;
  do {
    m_buffer = m_ring.pop();
  } while (!m_buffer && waitForBuffer());
  m_offset = 0;
  return m_buffer != nullptr;
}

std::size_t BufferQueue::fill(std::span<const std::byte> chunk, std::uint64_t end) {
  const std::size_t frame = m_description.bytesPerFrame;
  const std::size_t capacity = m_buffer->data.size() / frame * frame;
  const std::size_t size = std::min(capacity - m_offset, chunk.size());
  if (m_offset == 0) stamp(chunk.size() / frame, end);
  const std::span<std::byte> target = m_buffer->data.subspan(m_offset, size);
  std::ranges::copy(chunk.first(size), target.begin());
  applyVolume(target);
  m_frames += size / frame;
  m_offset += size;
  if (m_offset == capacity) handBackFilled();
  return size;
}

void BufferQueue::stamp(std::uint64_t framesLeft, std::uint64_t end) {
  const double nanoseconds = static_cast<double>(framesLeft) / m_description.sampleRate * 1e9;
  m_start.sampleTime = static_cast<double>(m_frames);
  m_start.hostTime = end - static_cast<std::uint64_t>(nanoseconds);
}

void BufferQueue::handBackRest() {
  if (m_buffer && m_offset > 0) handBackFilled();
}

void BufferQueue::handBackFilled() {
  QueueBuffer& full = *std::exchange(m_buffer, nullptr);
  full.dataByteSize = static_cast<std::uint32_t>(m_offset);
  const auto packets = m_offset / m_description.bytesPerPacket;
  m_filled(full, m_start, static_cast<std::uint32_t>(packets));
}

std::size_t BufferQueue::drain(std::span<std::byte> chunk) {
  const std::span<const std::byte> sound = m_buffer->sound();
  const std::size_t whole =
      sound.size() / m_description.bytesPerFrame * m_description.bytesPerFrame;
  const std::size_t size = std::min(whole - std::min(m_offset, whole), chunk.size());
  std::ranges::copy(sound.subspan(m_offset, size), chunk.begin());
  applyVolume(chunk.first(size));
  m_offset += size;
  if (m_offset >= whole) handBackPlayed();
  return size;
}

void BufferQueue::handBackPlayed() { m_played(*std::exchange(m_buffer, nullptr)); }

void BufferQueue::applyVolume(std::span<std::byte> sound) const {
  const float volume = m_volume;
  if (volume == 1.0F) return;
  for (std::size_t at = 0; at + sizeof(std::int16_t) <= sound.size(); at += sizeof(std::int16_t)) {
    std::int16_t sample = 0;
    std::memcpy(&sample, &sound[at], sizeof sample);
    sample = static_cast<std::int16_t>(
        std::clamp(static_cast<float>(sample) * volume, -32768.0F, 32767.0F));
    std::memcpy(&sound[at], &sample, sizeof sample);
  }
}

std::uint64_t BufferQueue::now() {
  const auto time = std::chrono::steady_clock::now().time_since_epoch();
  return static_cast<std::uint64_t>(
      std::chrono::duration_cast<std::chrono::nanoseconds>(time).count());
}

}  // namespace korvel::platform
