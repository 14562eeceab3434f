// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <stdlib.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <iostream>

namespace korvel::fuzz {

/// Scratch folders lie in memory from now on, where the system has a folder for that. Before the
/// first one is made.
inline void workInMemory() {
  if (std::filesystem::is_directory("/dev/shm")) setenv("TMPDIR", "/dev/shm", 1);
}

/// A finding unless the claim holds.
inline void require(bool claim, const char* text) {
  if (claim) return;
  std::cerr << "not so: " << text << '\n';
  std::abort();
}

}  // namespace korvel::fuzz

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);
