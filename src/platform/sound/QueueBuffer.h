// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

namespace korvel::platform {

/// A buffer that goes round between an audio queue and us. The queue owns the memory.
struct QueueBuffer {
  std::span<std::byte> data;       ///< The whole capacity.
  std::uint32_t dataByteSize = 0;  ///< How much of it holds sound.
  std::uint32_t packetDescriptionCount = 0;

  std::span<const std::byte> sound() const {
    return data.first(std::min<std::size_t>(dataByteSize, data.size()));
  }
};

/// When the first frame of a buffer was recorded or is to be played.
struct AudioTimeStamp {
  double sampleTime = 0;       ///< In frames since the queue started.
  std::uint64_t hostTime = 0;  ///< Nanoseconds of the steady clock.
};

}  // namespace korvel::platform
