// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/numerics/PageMemory.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <new>

namespace korvel::platform {

PageMemory::PageMemory(std::size_t bytes) : m_bytes(bytes) {
  if (bytes == 0) return;
  m_data = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (m_data == MAP_FAILED) throw std::bad_alloc();
}

PageMemory::~PageMemory() {
  if (m_data) munmap(m_data, m_bytes);
}

void PageMemory::release(std::size_t bytes) {
  static const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
  bytes = std::min(bytes, m_bytes) / page * page;
  if (bytes > 0) madvise(m_data, bytes, MADV_DONTNEED);
}

}  // namespace korvel::platform
