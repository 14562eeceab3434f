// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <utility>

namespace korvel::platform {

/// A large piece of memory straight from the system. It holds zeros, takes no memory before it is
/// written, and goes back to the system when it is freed or released, which the heap's memory does
/// not while anything behind it is in use.
class PageMemory {
 public:
  PageMemory() = default;
  /// Throws std::bad_alloc.
  explicit PageMemory(std::size_t bytes);
  PageMemory(PageMemory&& other) noexcept
      : m_data(std::exchange(other.m_data, nullptr)), m_bytes(std::exchange(other.m_bytes, 0)) {}
  PageMemory& operator=(PageMemory&& other) noexcept {
    std::swap(m_data, other.m_data);
    std::swap(m_bytes, other.m_bytes);
    return *this;
  }
  ~PageMemory();

  void* data() const { return m_data; }
  /// Gives back the whole pages among the first bytes, which hold zeros again.
  void release(std::size_t bytes);

 private:
  void* m_data = nullptr;
  std::size_t m_bytes = 0;
};

}  // namespace korvel::platform
