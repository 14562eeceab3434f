// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <span>

#include "platform/deck/DeckTape.h"

namespace korvel::platform {

/// The blocks that wait to be heard. One thread puts them in and one takes their frames out, and
/// neither ever waits, locks or allocates.
class DeckRing {
 public:
  static constexpr std::size_t kBlocks = 32;

  // Who fills it.
  /// Where the next block is to be written; none while the ring is full.
  DeckBlock* room();
  /// What was written there can be taken. fresh: all that waits before it is passed over.
  void push(bool fresh);
  /// That are still to be heard.
  std::int64_t framesAhead() const {
    return m_pushed - std::max(m_taken.load(), m_pushedBeforeFresh.load());
  }

  // Who takes.
  /// Some frames of one block.
  struct Piece {
    PlayHead::Span span;
    std::uint32_t seek = 0;
    std::span<const float> samples;
  };
  /// The next frames of the block that has its turn, at most so many; without frames when nothing
  /// waits. Stays until release.
  Piece front(std::size_t most);
  /// So many frames of it have been used.
  void release(std::size_t frames);
  /// Whether something waits that is to be heard in the place of what has its turn.
  bool hasFresh() const { return m_fresh.load(std::memory_order_acquire) > m_begin; }
  /// Goes on there.
  void skipToFresh();

 private:
  const DeckBlock& block(std::uint64_t index) const { return m_blocks[index % kBlocks]; }

  std::array<DeckBlock, kBlocks> m_blocks;
  std::atomic<std::uint64_t> m_begin = 0;
  std::atomic<std::uint64_t> m_end = 0;
  std::atomic<std::uint64_t> m_fresh = 0;  ///< The first block that is not to be passed over.
  std::atomic<std::int64_t> m_pushed = 0;
  std::atomic<std::int64_t> m_pushedBeforeFresh = 0;
  std::atomic<std::int64_t> m_taken = 0;
  std::size_t m_offset = 0;  ///< Frames of the first block that were used.
};

}  // namespace korvel::platform
