// SPDX-License-Identifier: GPL-3.0-or-later
#include "audio/BlockRing.h"

#include <utility>

namespace korvel {

void BlockRing::prepare() {
  for (auto& block : m_blocks)
    if (!block) block = std::make_unique<QBSampleBlock>();
}

QBSampleBlock* BlockRing::room() {
  const std::size_t end = m_end.load(std::memory_order_relaxed);
  if (end - m_begin.load(std::memory_order_acquire) == kBlocks) return nullptr;
  auto& block = m_blocks[end % kBlocks];
  if (!block) block = std::make_unique<QBSampleBlock>();
  return block.get();
}

void BlockRing::push() {
  m_end.store(m_end.load(std::memory_order_relaxed) + 1, std::memory_order_release);
}

std::unique_ptr<QBSampleBlock> BlockRing::pop() {
  const std::size_t begin = m_begin.load(std::memory_order_relaxed);
  if (begin == m_end.load(std::memory_order_acquire)) return nullptr;
  auto oldest = std::exchange(m_blocks[begin % kBlocks], std::make_unique<QBSampleBlock>());
  m_begin.store(begin + 1, std::memory_order_release);
  return oldest;
}

}  // namespace korvel
