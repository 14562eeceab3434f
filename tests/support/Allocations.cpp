// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Allocations.h"

#include <cstddef>
#include <cstdlib>
#include <new>

namespace {

thread_local int counted = 0;

}  // namespace

#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__) && !defined(__clang__)
void* operator new(std::size_t size) {
  ++counted;
  if (void* memory = std::malloc(size == 0 ? 1 : size)) return memory;
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
#endif

int korvel::test::allocations() { return counted; }
