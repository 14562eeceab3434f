// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <memory>

#include "audio/QBSampleBlock.h"

namespace korvel {

/// The blocks of live sound that wait to be read, first in, first out. One thread at a time fills
/// them and one reads them; neither waits for the other or locks anything, so that who fills them
/// may be the audio thread.
class BlockRing {
 public:
  /// A minute of live sound, longer than a busy machine keeps anybody from reading.
  static constexpr std::size_t kBlocks = 320;

  /// Makes all blocks, 10 MiB of them, after which filling them allocates nothing. While nobody
  /// fills or reads.
  void prepare();

  // Who fills.
  /// The block to be filled next, which is made when it was not prepared; none while the ring is
  /// full.
  QBSampleBlock* room();
  /// What was filled there can be read. Only after room gave a block.
  void push();

  // Who reads.
  /// The oldest block; none when nothing waits. Another one is made in its place.
  std::unique_ptr<QBSampleBlock> pop();

 private:
  std::array<std::unique_ptr<QBSampleBlock>, kBlocks> m_blocks;
  std::atomic<std::size_t> m_begin = 0;  ///< How many were read.
  std::atomic<std::size_t> m_end = 0;    ///< How many were filled.
};

}  // namespace korvel
