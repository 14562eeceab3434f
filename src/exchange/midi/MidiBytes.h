// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cstdint>
#include <string_view>

namespace korvel::exchange {

/// The bytes of a MIDI file, or of a chunk of it, one after the other. What is asked for beyond
/// their end throws `Ended`.
class MidiBytes {
 public:
  /// The bytes break off.
  struct Ended {};

  explicit MidiBytes(std::string_view bytes) : m_bytes(bytes) {}

  bool atEnd() const { return m_bytes.empty(); }
  int byte() { return static_cast<unsigned char>(take(1).front()); }
  int peek() const {
    if (atEnd()) throw Ended();
    return static_cast<unsigned char>(m_bytes.front());
  }
  std::string_view take(std::size_t count) {
    if (count > m_bytes.size()) throw Ended();
    const std::string_view taken = m_bytes.substr(0, count);
    m_bytes.remove_prefix(count);
    return taken;
  }
  /// As many as there are of them.
  std::string_view takeUpTo(std::size_t count) { return take(std::min(count, m_bytes.size())); }
  /// The highest byte first.
  std::uint32_t number(std::size_t bytes) {
    std::uint32_t value = 0;
    while (bytes-- > 0) value = value << 8 | static_cast<std::uint32_t>(byte());
    return value;
  }
  /// Seven bits a byte, the highest first, all but the last one marked; four at most.
  std::uint32_t variable() {
    std::uint32_t value = 0;
    for (int i = 0; i < 4; ++i) {
      const auto next = static_cast<std::uint32_t>(byte());
      value = value << 7 | (next & 0x7F);
      if (next < 0x80) break;
    }
    return value;
  }

 private:
  std::string_view m_bytes;
};

}  // namespace korvel::exchange
