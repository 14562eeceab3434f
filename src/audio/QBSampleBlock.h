// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "model/recorded/QBBlock.h"
#include "platform/sound/QueueBuffer.h"

namespace korvel {

/// One block of live sound: 16384 signed 16-bit samples, low byte first. Two channels stay
/// interleaved and are read as one stream.
class QBSampleBlock {
 public:
  explicit QBSampleBlock(std::int64_t time = 0) : m_time(time) {}

  /// Takes the buffer's bytes, 32768 of them at most. Allocates nothing.
  void fill(const platform::QueueBuffer& buffer);
  std::vector<std::int16_t> toSamples() const;

  std::int64_t m_time;  ///< Sample time of the first frame.

 private:
  std::array<std::byte, QBBlock::kBytes> m_buffer{};
};

}  // namespace korvel
