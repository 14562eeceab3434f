// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <atomic>
#include <cstddef>

#include "platform/sound/QueueBuffer.h"

namespace korvel::platform {

/// The buffers that wait their turn, first in, first out. One thread at a time pushes and one pops;
/// both never wait and never allocate.
class BufferRing {
 public:
  static constexpr std::size_t kCapacity = 16;

  /// False when the ring is full.
  bool push(QueueBuffer& buffer) {
    const std::size_t end = m_end.load(std::memory_order_relaxed);
    if (end - m_begin.load(std::memory_order_acquire) == kCapacity) return false;
    m_buffers[end % kCapacity] = &buffer;
    m_end.store(end + 1, std::memory_order_release);
    return true;
  }

  /// The first; none when the ring is empty.
  QueueBuffer* pop() {
    const std::size_t begin = m_begin.load(std::memory_order_relaxed);
    if (begin == m_end.load(std::memory_order_acquire)) return nullptr;
    QueueBuffer* first = m_buffers[begin % kCapacity];
    m_begin.store(begin + 1, std::memory_order_release);
    return first;
  }

 private:
  std::array<QueueBuffer*, kCapacity> m_buffers{};
  std::atomic<std::size_t> m_begin = 0;
  std::atomic<std::size_t> m_end = 0;
};

}  // namespace korvel::platform
